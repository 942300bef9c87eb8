// What happens to the texts of a machine description: first they are collected, then they are replaced.
#pragma once

#include "text_pool.h"

#include <QtCore/QByteArray>

class TextChange
{
public:
    explicit TextChange(int codePage) : m_codePage(codePage) { }

    /// Redacts the collected texts together with \a reports. From then on the functions below return redacted texts.
    velkor::Reports::Redaction redact(const std::vector<velkor::Reports::Document> &reports,
                                      const velkor::Reports::RedactionOptions &options);

    /// \a row is an index in factRows(): the fact that shows the text.
    QString text(int row, const QString &text);
    /// A text that the report reads by A calls: it shows their bytes as UTF-8, which turns some letters into others.
    QString ansiText(int row, const QString &text);
    /// Text in binary data, as UTF-8 or in the ANSI code page.
    QByteArray bytes(int row, const QByteArray &text);
    QString variable(const QString &name, const QString &value);
    /// Binary data without the bytes of MAC addresses that were replaced elsewhere.
    QByteArray withoutAddresses(QByteArray data) const;

private:
    QString shown(const QString &text) const;
    void takeAddresses(const std::vector<velkor::Reports::Alias> &aliases);

    int m_codePage;
    bool m_isCollecting = true;
    TextPool m_pool;
    std::vector<QByteArray> m_addresses; ///< six bytes each
};
