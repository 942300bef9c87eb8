// The module "library": calls the shared library as any host does.

#include "library_texts.h"
#include "module.h"
#include "part_names.h"

#include <QtWidgets/QApplication>
#include <algorithm>

extern "C" Q_DECL_EXPORT bool vkreportRunModule(const QStringList &parts, int argc, char **argv, PartReceiver &receiver)
{
    if (!std::all_of(parts.cbegin(), parts.cend(), isLibraryPart))
        return false;
    receiver.begin(QLatin1String(PartName::application));
    const QApplication application(argc, argv);
    LibraryTexts texts(parts);
    for (const QString &part : parts) {
        receiver.begin(part);
        receiver.text(texts.text(part));
    }
    receiver.end();
    return true;
}
