// Text in the ANSI code page of a machine, as its A calls convert it.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

QByteArray toAnsi(const QString &text, int codePage);
QString fromAnsi(const QByteArray &bytes, int codePage);
