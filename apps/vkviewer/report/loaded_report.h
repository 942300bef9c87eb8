// A report that the window shows.
#pragma once

#include "vkReports.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

/// A document and where it comes from. Copying is cheap.
struct LoadedReport
{
    Q_DECLARE_TR_FUNCTIONS(LoadedReport)

public:
    QString name; ///< for people: a file name, or where the text comes from
    QString path; ///< of the file, absolute; empty if the text comes from no file
    velkor::Reports::Document document;

    /// Whether something of a report was found in the text.
    bool isReport() const;

    /// Reads text in any state, or JSON of vkreport. On failure returns nothing, and \a error is a message for the user.
    static std::optional<LoadedReport> fromBytes(const QByteArray &bytes, const QString &name, QString &error);
    /// The same for a file of at most 512 MByte.
    static std::optional<LoadedReport> fromFile(const QString &fileName, QString &error);
};

Q_DECLARE_METATYPE(LoadedReport)
