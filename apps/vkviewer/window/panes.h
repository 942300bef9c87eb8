// Goes from pane to pane of the window.
#pragma once

#include <vector>

class QWidget;

/// A part of the window that the user knows as one.
struct Pane
{
    QWidget *area = nullptr;
    QWidget *first = nullptr; ///< gets the focus at first; null for the first child that the key Tab reaches
};

/// Gives the focus to the pane that follows the one with the focus, or precedes it if \a step is -1; after the last one comes
/// the first. The focus returns to the child of the pane that had it last. Panes that are hidden or disabled are left out.
void goToPane(const std::vector<Pane> &panes, int step);
