// The interface between vkreport and its two modules. The module "library" calls the shared library through
// its public header, the module "sections" is linked with the sections themselves. vkreport loads one of
// them in a child, or in its own process for --in-process.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// Receives what a module makes, on the thread that runs the module.
class PartReceiver
{
public:
    virtual ~PartReceiver() = default;
    /// A part, or the creation of the application object, begins.
    virtual void begin(const QString &part) = 0;
    /// The text of the part that began last.
    virtual void text(const QString &text) = 0;
    /// All parts are done. The application object still exists.
    virtual void end() = 0;
};

/// Makes \a parts in their order. Returns false if a name is unknown; then it makes none. \a argv contains
/// the arguments of the QApplication.
using RunModule = bool (*)(const QStringList &parts, int argc, char **argv, PartReceiver &receiver);

/// Every module exports a RunModule with this name.
constexpr char runModuleName[] = "vkreportRunModule";
