// Messages that stay until the user closes them.
#pragma once

#include <QtWidgets/QWidget>

class QLabel;
class QToolButton;

/// Invisible without messages. Plain text: messages can contain texts of strangers.
class MessageBar : public QWidget
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget *parent = nullptr);

    /// Replaces what is shown. No more than a few lines are shown at once; the tooltip has the others.
    void setMessages(const QStringList &messages);
    /// Adds a message to those that are shown.
    void addMessage(const QString &message);
    const QStringList &messages() const { return m_messages; }

public Q_SLOTS:
    void clear();

private:
    void showMessages();

    QStringList m_messages;
    QLabel *m_icon;
    QLabel *m_label;
    QToolButton *m_close;
};
