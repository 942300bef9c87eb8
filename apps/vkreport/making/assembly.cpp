#include "assembly.h"

#include "vkReports.h"

using namespace velkor;

QStringList sectionNames(bool noOpenGL)
{
    QStringList names;
    for (const Reports::SectionRow &row : Reports::sectionRows()) {
        if (row.half != Reports::Half::OpenGL || !noOpenGL)
            names += QString::fromUtf8(row.name);
    }
    return names;
}

QByteArray assembledReport(const std::map<QString, QByteArray> &texts)
{
    QByteArray report;
    bool isGroupEmpty = true; // since the last separator line
    const Reports::SectionRow *previous = nullptr;
    for (const Reports::SectionRow &row : Reports::sectionRows()) {
        const bool beginsHalf = !previous || previous->half != row.half;
        previous = &row;
        if (beginsHalf && row.half != Reports::Half::OpenGL)
            report += Reports::halfHeading(row.half) + '\n';
        const auto text = texts.find(QString::fromUtf8(row.name));
        if (text != texts.end()) {
            report += text->second;
            isGroupEmpty = false;
        }
        if (row.separator && !isGroupEmpty) {
            report += Reports::separatorLine() + '\n';
            isGroupEmpty = true;
        }
    }
    return report;
}
