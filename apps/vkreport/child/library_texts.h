// The texts that the library makes.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// Whether LibraryTexts knows this name, see part_names.h.
bool isLibraryPart(const QString &part);

class LibraryTexts
{
public:
    /// \a parts are those of this process, which PartName::timings measures.
    explicit LibraryTexts(QStringList parts);

    QString text(const QString &part);

private:
    QString report(bool noOpenGL);
    QString timings() const;

    QStringList m_parts;
    double m_firstReport = 0; // milliseconds
};
