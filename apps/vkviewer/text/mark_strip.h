// Shows where in the whole text its marks are.
#pragma once

#include <QtWidgets/QWidget>

class TextView;

/// Stands beside the vertical scroll bar of a view. A click scrolls to the place.
class MarkStrip : public QWidget
{
    Q_OBJECT

public:
    explicit MarkStrip(TextView *view);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void scrollTo(int y);

    TextView *m_view;
};
