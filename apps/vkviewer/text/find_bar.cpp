#include "find_bar.h"

#include "text_search.h"
#include "text_view.h"
#include "utf8_character.h"

#include <QtCore/QLocale>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>
#include <algorithm>

namespace {

constexpr int longestWanted = 1000;   // characters
constexpr int longestSelection = 200; // bytes of a selection that the user probably wants to find

QToolButton *makeButton(QWidget *parent, QStyle::StandardPixmap icon, const QString &name, const QString &toolTip)
{
    auto *const button = new QToolButton(parent);
    button->setIcon(parent->style()->standardIcon(icon));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(name);
    button->setToolTip(toolTip);
    return button;
}

/// Such as "3 of 17".
QString placeText(const QString &place, const QString &total)
{
    return FindBar::tr("%1 of %2", "a hit and the number of hits").arg(place, total);
}

bool isOneLine(const QByteArray &text)
{
    return !text.contains('\n') && !text.contains('\r');
}

} // namespace

FindBar::FindBar(TextView *view, QWidget *parent)
    : QWidget(parent), m_view(view), m_search(new TextSearch(this)), m_edit(new QLineEdit(this)), m_count(new QLabel(this)), m_previous(makeButton(this, QStyle::SP_ArrowUp, tr("Previous hit"), tr("Previous hit (Shift+F3)"))), m_next(makeButton(this, QStyle::SP_ArrowDown, tr("Next hit"), tr("Next hit (F3)"))), m_matchCase(new QCheckBox(tr("M&atch case"), this)), m_close(makeButton(this, QStyle::SP_TitleBarCloseButton, tr("Close the find bar"), tr("Close (Esc)")))
{
    buildLayout();
    setVisible(false);
    connect(m_edit, &QLineEdit::textChanged, this, [this] { startSearch(true); });
    connect(m_matchCase, &QCheckBox::toggled, this, [this] { startSearch(true); });
    connect(m_previous, &QToolButton::clicked, this, &FindBar::findPrevious);
    connect(m_next, &QToolButton::clicked, this, &FindBar::findNext);
    connect(m_close, &QToolButton::clicked, this, &FindBar::closeBar);
    connect(m_search, &TextSearch::progressed, this, &FindBar::showProgress);
    connect(m_view, &TextView::linesChanged, this, &FindBar::restart);
    connect(m_view, &TextView::selectionChanged, this, &FindBar::leaveHit);
    connect(m_view, &TextView::caretMoved, this, &FindBar::leaveHit);
    m_edit->installEventFilter(this);
}

void FindBar::buildLayout()
{
    auto *const label = new QLabel(tr("Fin&d:"), this);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(m_edit);
    m_edit->setMaxLength(longestWanted);
    m_edit->setClearButtonEnabled(true);
    m_edit->setAccessibleName(tr("Find"));
    m_count->setTextFormat(Qt::PlainText);
    m_count->setAccessibleDescription(tr("Number of hits"));
    // The buttons stay where they are while the number changes.
    m_count->setMinimumWidth(fontMetrics().horizontalAdvance(placeText(QStringLiteral("99,999"), QStringLiteral("99,999"))));
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_previous);
    layout->addWidget(m_next);
    layout->addWidget(m_count);
    layout->addWidget(m_matchCase);
    layout->addWidget(m_close);
    const int space = style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing, nullptr, this);
    layout->setContentsMargins(space, space / 2, space, space / 2);
    updateLabel();
}

void FindBar::open()
{
    setVisible(true);
    const QByteArray selected = m_view->selectedBytes().left(longestSelection + 1);
    const bool isWanted = !selected.isEmpty() && selected.size() <= longestSelection && isOneLine(selected);
    const QString wanted = isWanted ? decodedText(selected, 0, selected.size()) : m_edit->text();
    m_edit->setFocus(Qt::ShortcutFocusReason);
    if (wanted != m_edit->text())
        m_edit->setText(wanted); // searches
    else if (m_isStale)
        startSearch(true);
    else
        updateMarks();
    m_edit->selectAll();
}

void FindBar::closeBar()
{
    setVisible(false);
    m_view->setFocus(Qt::OtherFocusReason);
}

void FindBar::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    updateMarks();
}

void FindBar::hideEvent(QHideEvent *event)
{
    m_waiting = false;
    updateMarks();
    QWidget::hideEvent(event);
}

/// The user goes elsewhere.
void FindBar::leaveHit()
{
    if (m_isShowing)
        return;
    m_waiting = m_wrapped = false;
    updateMarks();
}

void FindBar::startSearch(bool showsHit)
{
    m_isStale = false;
    m_wrapped = false;
    m_from = m_view->selection().begin;
    m_waiting = showsHit && !m_edit->text().isEmpty();
    m_search->start(m_view->lines(), m_edit->text(), m_matchCase->isChecked());
}

/// The view shows another text.
void FindBar::restart()
{
    m_isStale = true;
    m_waiting = m_wrapped = false;
    m_search->clear();
    if (isVisible() && !m_edit->text().isEmpty())
        startSearch(false); // the user did not ask for another place
    updateMarks();
}

void FindBar::showProgress()
{
    if (m_waiting) {
        std::optional<TextRange> hit = m_search->hits()->firstFrom(m_from);
        if (!hit && m_search->isFinished()) {
            hit = m_search->hits()->firstFrom(0);
            m_wrapped = hit.has_value();
        }
        if (hit)
            show(*hit);
        else if (m_search->isFinished())
            m_waiting = false;
    }
    updateMarks();
}

void FindBar::show(TextRange hit)
{
    m_waiting = false;
    m_isShowing = true;
    m_view->showRange(hit);
    m_isShowing = false;
}

void FindBar::findNext() { find(true); }

void FindBar::findPrevious() { find(false); }

/// Whether there is something to find.
bool FindBar::prepareToFind()
{
    if (m_edit->text().isEmpty()) {
        if (!isVisible())
            open();
        m_edit->setFocus(Qt::ShortcutFocusReason);
        return false;
    }
    if (m_isStale)
        startSearch(false);
    return true;
}

void FindBar::find(bool forward)
{
    if (!prepareToFind())
        return;
    const TextHits &hits = *m_search->hits();
    const TextRange selected = m_view->selection();
    const int end = m_view->lines().text().size();
    // From a hit to the one after it; from elsewhere to the first at or after the caret.
    const int from = hits.isHit(selected) ? selected.end : m_view->caret();
    std::optional<TextRange> hit = forward ? hits.firstFrom(from) : hits.lastBefore(selected.begin);
    m_wrapped = false;
    if (!hit && forward && !m_search->isFinished()) {
        m_from = from;
        m_waiting = true; // it comes
    } else if (!hit) {
        hit = forward ? hits.firstFrom(0) : hits.lastBefore(end);
        m_wrapped = hit.has_value();
    }
    if (hit)
        show(*hit);
    updateMarks();
}

void FindBar::updateMarks()
{
    const std::shared_ptr<const TextHits> hits = m_search->hits();
    const TextRange selected = m_view->selection();
    m_view->setHits(isVisible() ? hits : nullptr);
    const bool isAtHit = isVisible() && hits->isHit(selected);
    m_view->setMarks(TextMark::CurrentHit, isAtHit ? std::vector<TextRange> {selected} : std::vector<TextRange>());
    updateLabel();
}

void FindBar::updateLabel()
{
    const TextHits &hits = *m_search->hits();
    const TextRange selected = m_view->selection();
    const QLocale locale;
    // While the search goes on, the number grows.
    const QString total = locale.toString(hits.count()) + (m_search->isFinished() ? QString() : QStringLiteral("+"));
    QString text;
    if (m_edit->text().isEmpty())
        text = QString();
    else if (hits.count() == 0)
        text = m_search->isFinished() ? tr("No hits") : tr("Searching");
    else if (hits.isHit(selected))
        text = placeText(locale.toString(hits.countBefore(selected.begin) + 1), total);
    else
        text = tr("Hits: %1").arg(total);
    if (m_wrapped)
        text = tr("%1, continued at the other end").arg(text);
    m_count->setText(text);
    m_previous->setEnabled(!m_edit->text().isEmpty());
    m_next->setEnabled(!m_edit->text().isEmpty());
}

bool FindBar::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            find(!(key->modifiers() & Qt::ShiftModifier));
            return true;
        }
    }
    return QWidget::eventFilter(object, event);
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        closeBar();
    else
        QWidget::keyPressEvent(event);
}
