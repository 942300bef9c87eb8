#include "test_main.h"

#include <QtCore/QEventLoop>
#include <QtCore/QVariantAnimation>
#include <QtWidgets/QApplication>
#include <cstdio>
#include <map>
#include <memory>

namespace {

struct TestClass
{
    TestApplication application;
    QObject *(*create)();
};

std::map<QString, TestClass> &testClasses()
{
    static std::map<QString, TestClass> classes;
    return classes;
}

std::unique_ptr<QCoreApplication> makeApplication(TestApplication kind, int &argc, char *argv[])
{
    if (kind == TestApplication::None)
        return nullptr;
    if (kind == TestApplication::Core)
        return std::make_unique<QCoreApplication>(argc, argv);
    return std::make_unique<QApplication>(argc, argv);
}

/// Waits until the animations of the widgets that the test has deleted have ended.
/// QLineEdit starts one whenever its clear button appears or disappears. It has no parent, and
/// notices at its next step that the button no longer exists. Without that step the leak
/// sanitizer may report it. One timer steps all animations: those that run already have been
/// stepped before one that starts now ends.
void endAnimations()
{
    QVariantAnimation last;
    last.setStartValue(0);
    last.setEndValue(1);
    last.setDuration(40); // the timer steps every 16 ms
    QEventLoop loop;
    QObject::connect(&last, &QAbstractAnimation::finished, &loop, &QEventLoop::quit);
    last.start();
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int listTests(const char *program)
{
    std::fprintf(stderr, "Usage: %s TEST [ARGUMENT OF QtTest]...\nTests:\n", program);
    for (const auto &entry : testClasses())
        std::fprintf(stderr, "  %s\n", qPrintable(entry.first));
    return 2;
}

} // namespace

TestRegistration::TestRegistration(const char *sourceFile, TestApplication application, QObject *(*create)())
{
    const QString name = QFileInfo(QString::fromLocal8Bit(sourceFile)).completeBaseName();
    testClasses().emplace(name.startsWith(QLatin1String("tst_")) ? name.mid(4) : name, TestClass {application, create});
}

int main(int argc, char *argv[])
{
    const auto found = argc > 1 ? testClasses().find(QString::fromLocal8Bit(argv[1])) : testClasses().end();
    if (found == testClasses().end())
        return listTests(argv[0]);
    // QtTest must not see the name of the test class.
    std::vector<char *> arguments(argv, argv + argc + 1);
    arguments.erase(arguments.begin() + 1);
    --argc;
    const std::unique_ptr<QCoreApplication> application = makeApplication(found->second.application, argc, arguments.data());
    std::unique_ptr<QObject> test(found->second.create());
    const int result = QTest::qExec(test.get(), argc, arguments.data());
    test.reset();
    if (found->second.application == TestApplication::Widgets)
        endAnimations();
    return result;
}
