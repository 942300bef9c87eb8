// The key of context menus that the program has to know itself.
#pragma once

#include <QtCore/qglobal.h>
#include <QtGui/QKeyEvent>

/// Shift+F10. Windows sends QEvent::ContextMenu after it; elsewhere that event comes after the Menu key only.
inline bool isContextMenuKey(const QKeyEvent &event)
{
#ifdef Q_OS_WIN
    Q_UNUSED(event)
    return false;
#else
    return event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
#endif
}
