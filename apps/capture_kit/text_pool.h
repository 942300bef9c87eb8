// The texts of a machine description on their way through the redaction.
#pragma once

#include "redaction/loose_texts.h"

#include <QtCore/QHash>
#include <QtCore/QString>

/// Collects texts, each with the fact of the report that shows it, and gives them back redacted.
class TextPool
{
public:
    /// \a row is an index in factRows(). Each text is taken once.
    void add(int row, const QString &text);
    /// The value of an environment variable that the Windows half does not show.
    void addVariable(const QString &name, const QString &value);

    velkor::Reports::Document document() const;
    /// \a redacted is the document() after redact().
    void take(const velkor::Reports::Document &redacted);

    /// The redacted text; \a text itself if it was not added or nothing in it was replaced.
    QString redacted(int row, const QString &text) const;
    QString redactedVariable(const QString &name, const QString &value) const;

private:
    int append(int row, const QString &text);
    QString redactedAt(int index, const QString &text) const;

    std::vector<velkor::Reports::LooseText> m_texts;
    std::vector<QByteArray> m_redacted;
    QHash<QPair<int, QString>, int> m_places;
    QHash<QPair<QString, QString>, int> m_variables;
};
