#include "capture_redaction.h"

#include "machine_texts.h"
#include "registry_facts.h"

using namespace velkor;

namespace {

machine::Machine changed(const machine::Machine &machine, TextChange &change)
{
    return {changedRegistry(machine.registry, change), changedSystem(machine.system, change)};
}

QStringList changed(const QStringList &notes, TextChange &change)
{
    QStringList result;
    for (const QString &note : notes)
        result += change.text(neutralRow(), note);
    return result;
}

} // namespace

RedactedCapture redactCapture(const machine::Machine &machine, const Reports::Document &report, const QStringList &notes,
                              const Reports::RedactionOptions &options)
{
    TextChange change(machine.system.ansiCodePage);
    changed(machine, change); // collects the texts
    changed(notes, change);
    RedactedCapture result;
    result.redaction = change.redact({report}, options);
    result.machine = changed(machine, change);
    result.notes = changed(notes, change);
    result.report = result.redaction.documents.front();
    return result;
}
