// Text on its way to the clipboard.
#pragma once

#include "text_range.h"

#include <QtCore/QMimeData>

/// Text in UTF-8. Unlike a QTextDocument, it changes neither no-break spaces nor line ends; Windows itself expects
/// carriage returns and adds them. Decodes the bytes when somebody pastes them.
class TextMimeData : public QMimeData
{
    Q_OBJECT

public:
    TextMimeData(const QByteArray &text, TextRange range);
    explicit TextMimeData(const QByteArray &text)
        : TextMimeData(text, {0, text.size()})
    {
    }

    QStringList formats() const override;
    bool hasFormat(const QString &format) const override;

protected:
    QVariant retrieveData(const QString &format, QVariant::Type type) const override;

private:
    QByteArray m_text;
    TextRange m_range;
};
