// The parts that a child can make: what a child gets on its command line, and what is said about it.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// The sections that the library exports, in the order of the report: EXPORTED_SECTIONS(f) is f(qtDateTime) ...
#define EXPORTED_SECTIONS(f)                                                                                \
  f(qtDateTime) f(qtGlobal) f(qtCoreApplication) f(qtLocale) f(qtScreens) f(qtDesktop) f(qtDesktopServices) \
      f(qtAccessibility) f(qtPrinterInfo) f(qtHostInfo) f(qtSystemEnvironment)

namespace PartName {

constexpr char wholeReport[] = "allInfos";
constexpr char withoutOpenGL[] = "allInfosWithoutOpenGL";
constexpr char platformName[] = "platformName";
constexpr char openGLVersion[] = "openGLVersion";
constexpr char bonjour[] = "bonjour";
/// Durations of the other parts of the same child.
constexpr char timings[] = "timings";
/// A step of every child, which gives no text: the QApplication is created.
constexpr char application[] = "application";

} // namespace PartName

/// The names of EXPORTED_SECTIONS.
QStringList exportedSectionNames();
