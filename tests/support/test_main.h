// Several test classes in one program; each run executes the one that the command line names.
//
// A source tst_NAME.cpp ends with one of the macros below. It is the test NAME of
// ctest: `test_sections NAME [ARGUMENT OF QtTest]...`. The macros are modelled on
// QTEST_APPLESS_MAIN, QTEST_GUILESS_MAIN and QTEST_MAIN.
#pragma once

#include <QtTest/QtTest>

/// The application object that exists while a test class runs.
enum class TestApplication {
    None,
    Core,
    Widgets,
};

/// Adds a test class to the program; \a sourceFile names it.
class TestRegistration
{
public:
    TestRegistration(const char *sourceFile, TestApplication application, QObject *(*create)());
};

#define TEST_REGISTER(TestClass, application)                           \
  static const TestRegistration testRegistration(__FILE__, application, \
                                                 []() -> QObject * { return new TestClass; })

#define TEST_WITHOUT_APPLICATION(TestClass) TEST_REGISTER(TestClass, TestApplication::None)
#define TEST_WITH_CORE_APPLICATION(TestClass) TEST_REGISTER(TestClass, TestApplication::Core)
#define TEST_WITH_APPLICATION(TestClass) TEST_REGISTER(TestClass, TestApplication::Widgets)
