#include "panes.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace {

bool takesFocus(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
}

/// Null if nothing in the pane can have the focus.
QWidget *targetOf(const Pane &pane)
{
    QWidget *last = pane.area->focusWidget();
    if (last && takesFocus(last))
        return last;
    if (pane.first && takesFocus(pane.first))
        return pane.first;
    QWidget *widget = pane.area;
    do { // the widgets in the order of the key Tab
        if ((widget == pane.area || pane.area->isAncestorOf(widget)) && takesFocus(widget))
            return widget;
        widget = widget->nextInFocusChain();
    } while (widget != pane.area);
    return nullptr;
}

} // namespace

void goToPane(const std::vector<Pane> &panes, int step)
{
    struct Target
    {
        QWidget *area;
        QWidget *widget;
    };
    std::vector<Target> targets;
    for (const Pane &pane : panes) {
        if (QWidget *widget = targetOf(pane))
            targets.push_back({pane.area, widget});
    }
    if (targets.empty())
        return;
    const int count = int(targets.size());
    const QWidget *focus = QApplication::focusWidget();
    int current = -1;
    for (int i = 0; i < count && focus; ++i) {
        if (targets[std::size_t(i)].area == focus || targets[std::size_t(i)].area->isAncestorOf(focus))
            current = i;
    }
    const int next = current < 0 ? (step > 0 ? 0 : count - 1) : (current + step + count) % count;
    targets[std::size_t(next)].widget->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}
