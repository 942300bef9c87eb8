#include "incomplete_member.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

QByteArray incompleteMember(const QByteArray &json)
{
    const QJsonObject member = QJsonDocument::fromJson(json).object().value(QLatin1String("incomplete")).toObject();
    return member.isEmpty() ? QByteArray() : QJsonDocument(member).toJson();
}
