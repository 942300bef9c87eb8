// The module "sections": each section by itself, so that one that fails costs only its own text.

#include "module.h"
#include "part_names.h"
#include "report/section_table.h"

#include <QtWidgets/QApplication>
#include <algorithm>
#include <memory>

using namespace velkor::SystemInfo;

namespace {

const Section *findRow(const QString &name)
{
    const SectionTable table;
    const auto *row = std::find_if(table.begin(), table.end(),
                                   [&name](const Section &section) { return name == QLatin1String(section.name); });
    return row == table.end() ? nullptr : row;
}

} // namespace

/// The Windows half needs no application object, so it cannot fail because of one.
extern "C" Q_DECL_EXPORT bool vkreportRunModule(const QStringList &parts, int argc, char **argv, PartReceiver &receiver)
{
    if (!std::all_of(parts.cbegin(), parts.cend(), findRow))
        return false;
    std::unique_ptr<QApplication> application;
    for (const QString &part : parts) {
        const Section *row = findRow(part);
        if (!application && row->part != Part::Windows) {
            receiver.begin(QLatin1String(PartName::application));
            application = std::make_unique<QApplication>(argc, argv);
        }
        receiver.begin(part);
        receiver.text(row->text());
    }
    receiver.end();
    return true;
}
