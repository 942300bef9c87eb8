// The commands of vkbench. Each platform has its own.
#pragma once

#include <QtCore/QStringList>
#include <vector>

namespace bench {

enum ExitCode {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
};

struct Command
{
    const char *name;
    const char *usage;
    ExitCode (*run)(const QStringList &arguments, bool withOpenGL);
};

std::vector<Command> commands();

} // namespace bench
