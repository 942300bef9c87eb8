// Texts of strangers in widgets: bounded and without effect.
#pragma once

#include <QtCore/QString>

/// \a value on one line and of bounded length. Control characters and characters that change the direction are visible.
QString lineText(const QString &value);

/// A tooltip that shows \a text as it is: Qt takes some texts for HTML, which this function prevents.
QString plainToolTip(const QString &text);
