// The focus of a page that is not shown for a while.
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QStackedWidget>

class KeptFocus
{
public:
    /// Shows \a page instead of what is shown, and gives it the focus if that had it.
    void show(QStackedWidget *pages, QWidget *page)
    {
        QWidget *focus = pages->window()->focusWidget();
        const bool isInside = focus && focus != page && pages->isAncestorOf(focus);
        pages->setCurrentWidget(page);
        if (!isInside)
            return;
        m_widget = focus;
        m_page = page;
        page->setFocus();
    }
    /// Shows what was shown before, and gives it its focus. The user may have gone elsewhere meanwhile.
    void showAgain(QStackedWidget *pages, int page)
    {
        const bool isHere = m_widget && m_page && pages->window()->focusWidget() == m_page;
        pages->setCurrentIndex(page);
        if (isHere)
            m_widget->setFocus();
        m_widget.clear();
    }

private:
    QPointer<QWidget> m_widget;
    QPointer<QWidget> m_page;
};
