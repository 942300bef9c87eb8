#include "redaction_files.h"

QString problemWithFiles(const Options &options)
{
    const NamedFile output {"--output", options.output};
    const NamedFile map {"--alias-map", options.redaction.aliasMap};
    std::vector<NamedFile> files = filesRead(options.redaction);
    QString problem = wrongName(files);
    if (problem.isEmpty())
        problem = overwritten(output, files);
    if (!problem.isEmpty() || map.name.isNull())
        return problem;
    files.push_back(output);
    files.push_back({"--input", options.input});
    problem = wrongName({map});
    return problem.isEmpty() ? overwritten(map, files) : problem;
}
