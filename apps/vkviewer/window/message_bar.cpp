#include "message_bar.h"

#include "report/shown_text.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>

namespace {

constexpr int mostLines = 4;
constexpr int mostMessages = 100;

} // namespace

MessageBar::MessageBar(QWidget *parent)
    : QWidget(parent), m_icon(new QLabel), m_label(new QLabel), m_close(new QToolButton)
{
    setAccessibleName(tr("Messages"));
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this).pixmap(size, size));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_label->setAccessibleName(tr("Messages"));
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton, nullptr, this));
    m_close->setAutoRaise(true);
    m_close->setFocusPolicy(Qt::TabFocus);
    m_close->setAccessibleName(tr("Close the messages"));
    m_close->setToolTip(tr("Close"));
    auto *layout = new QHBoxLayout(this);
    const int margin = layout->contentsMargins().top() / 2;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(m_icon, 0, Qt::AlignTop);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_close, 0, Qt::AlignTop);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    m_label->setForegroundRole(QPalette::ToolTipText);
    setAutoFillBackground(true);
    connect(m_close, &QToolButton::clicked, this, &MessageBar::clear);
    hide();
}

void MessageBar::setMessages(const QStringList &messages)
{
    m_messages = messages.mid(0, mostMessages);
    m_messages.removeAll(QString());
    showMessages();
}

void MessageBar::addMessage(const QString &message)
{
    QStringList messages = m_messages;
    messages.removeAll(message);
    setMessages(QStringList(message) + messages);
}

void MessageBar::clear()
{
    setMessages({});
}

void MessageBar::showMessages()
{
    QStringList lines;
    for (const QString &message : qAsConst(m_messages))
        lines << lineText(message);
    const int more = lines.size() - mostLines;
    QStringList shown = lines.mid(0, more > 0 ? mostLines - 1 : mostLines);
    if (more > 0)
        shown << tr("%n more message(s): see the tooltip.", nullptr, lines.size() - shown.size());
    m_label->setText(shown.join(QLatin1Char('\n')));
    m_label->setToolTip(more > 0 ? plainToolTip(lines.join(QLatin1Char('\n'))) : QString());
    setVisible(!m_messages.isEmpty());
}
