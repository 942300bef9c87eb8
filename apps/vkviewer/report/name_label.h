// The name of a report or section where there may be little room.
#pragma once

#include <QtWidgets/QLabel>

/// Plain text with an ellipsis in the middle if it is wider than the label.
class NameLabel : public QLabel
{
    Q_OBJECT

public:
    explicit NameLabel(QWidget *parent = nullptr);

    /// \a toolTip is plain text, too.
    void setName(const QString &name, const QString &toolTip);
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
