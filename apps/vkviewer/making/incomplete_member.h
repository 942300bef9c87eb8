// What the JSON of a report says about its missing parts.
#pragma once

#include <QtCore/QByteArray>

/// The member "incomplete" of JSON that vkreport wrote for this window, as an object; empty if there is none. Not for
/// JSON of strangers: everything in the member is kept, also after personal data were hidden.
QByteArray incompleteMember(const QByteArray &json);
