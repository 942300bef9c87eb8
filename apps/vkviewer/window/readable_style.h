// Fusion, with check boxes that can be seen on a dark background.
#pragma once

#include <QtWidgets/QProxyStyle>

/// Fusion frames a check box with a shade that is darker than the window, which is nearly black with a dark palette.
class ReadableStyle : public QProxyStyle
{
    Q_OBJECT

public:
    ReadableStyle();

    /// Replaces Fusion in this program. Other styles, such as that of Windows, stay.
    static void install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const override;
};
