// The list of all keys.
#pragma once

#include <QtWidgets/QAction>
#include <QtWidgets/QDialog>

class ShortcutList : public QDialog
{
    Q_OBJECT

public:
    /// Lists those of \a actions that have keys.
    explicit ShortcutList(const QList<QAction *> &actions, QWidget *parent = nullptr);
};
