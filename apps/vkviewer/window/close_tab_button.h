// The cross that closes a tab.
#pragma once

#include <QtWidgets/QToolButton>

/// The cross of the style is a picture, which cannot be seen on a dark background. This one has the colour of the text.
class CloseTabButton : public QToolButton
{
    Q_OBJECT

public:
    explicit CloseTabButton(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
