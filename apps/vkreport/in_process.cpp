#include "in_process.h"

#include "child/child_main.h"
#include "conversion.h"
#include "making/child_system.h"
#include "part_names.h"
#include "requested_parts.h"

using namespace velkor;

namespace {

class Collector : public PartReceiver
{
public:
    explicit Collector(const Options &options) : m_options(options) { }

    void begin(const QString &part) override { m_part = part; }
    void text(const QString &text) override
    {
        if (m_part == QLatin1String(PartName::timings))
            m_made.timings = text;
        else
            m_text += text.toUtf8();
    }
    /// The text is written before the application object is destroyed: some drivers crash then.
    void end() override
    {
        m_made.text = listedSections(m_options) + m_text;
        m_exitCode = writeMade(m_options, m_made);
    }

    ExitCode exitCode() const { return m_exitCode; }

private:
    const Options &m_options;
    QString m_part;
    QByteArray m_text;
    MadeText m_made;
    ExitCode m_exitCode = Failed;
};

} // namespace

ExitCode makeInProcess(const Options &options, int argc, char **argv)
{
    QString error;
    const RunModule run = loadModule(QLatin1String(ModuleName::library), error);
    if (!run) {
        complain(error);
        return Failed;
    }
    sayIfNoMachine();
    QStringList parts = requestedParts(options);
    if (options.timings)
        parts += QLatin1String(PartName::timings);
    Collector collector(options);
    run(parts, argc, argv, collector);
    return collector.exitCode();
}
