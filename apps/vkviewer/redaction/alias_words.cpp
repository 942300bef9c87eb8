#include "alias_words.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

using namespace velkor::Reports;

namespace {

struct KindRow
{
    AliasKind kind;
    const char *text;
};

constexpr KindRow kindRows[] = {
    {AliasKind::User, QT_TRANSLATE_NOOP("Redaction", "User name")},
    {AliasKind::Host, QT_TRANSLATE_NOOP("Redaction", "Computer")},
    {AliasKind::Domain, QT_TRANSLATE_NOOP("Redaction", "Domain")},
    {AliasKind::Organisation, QT_TRANSLATE_NOOP("Redaction", "Organisation")},
    {AliasKind::Product, QT_TRANSLATE_NOOP("Redaction", "Product ID")},
    {AliasKind::Serial, QT_TRANSLATE_NOOP("Redaction", "Serial number")},
    {AliasKind::Mac, QT_TRANSLATE_NOOP("Redaction", "MAC address")},
    {AliasKind::Ip, QT_TRANSLATE_NOOP("Redaction", "IP address")},
    {AliasKind::Printer, QT_TRANSLATE_NOOP("Redaction", "Printer")},
    {AliasKind::Label, QT_TRANSLATE_NOOP("Redaction", "Drive label")},
    {AliasKind::Share, QT_TRANSLATE_NOOP("Redaction", "Network drive")},
    {AliasKind::Folder, QT_TRANSLATE_NOOP("Redaction", "Folder")},
    {AliasKind::Secret, QT_TRANSLATE_NOOP("Redaction", "Secret")},
    {AliasKind::Word, QT_TRANSLATE_NOOP("Redaction", "Hidden by hand")},
};

struct ReasonRow
{
    Reason reason;
    const char *text;
};

constexpr ReasonRow reasonRows[] = {
    {Reason::Fact, QT_TRANSLATE_NOOP("Redaction", "a fact of the report reveals it")},
    {Reason::SameElsewhere, QT_TRANSLATE_NOOP("Redaction", "it occurs elsewhere, too")},
    {Reason::Folder, QT_TRANSLATE_NOOP("Redaction", "a path says what it is")},
    {Reason::Form, QT_TRANSLATE_NOOP("Redaction", "its form shows what it is")},
    {Reason::Environment, QT_TRANSLATE_NOOP("Redaction", "an environment variable holds it")},
    {Reason::Hidden, QT_TRANSLATE_NOOP("Redaction", "you hid it")},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("Redaction", text);
}

} // namespace

QString kindText(AliasKind kind)
{
    for (const KindRow &row : kindRows) {
        if (row.kind == kind)
            return translated(row.text);
    }
    return {};
}

QString reasonText(Reasons reasons)
{
    QStringList texts;
    for (const ReasonRow &row : reasonRows) {
        if (reasons.testFlag(row.reason))
            texts += translated(row.text);
    }
    return texts.join(QLatin1String("; "));
}
