// Texts in binary data.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <functional>

/// Replaces each text of UTF-16 in \a data that begins at an even offset or, with \a first 1, at an odd one.
QByteArray withUtf16Texts(const QByteArray &data, int first, const std::function<QString(const QString &)> &change);

/// The same for 8-bit text. \a change also gets the offset of the text.
QByteArray withNarrowTexts(const QByteArray &data, const std::function<QByteArray(int, const QByteArray &)> &change);
