#include "described_windows.h"

#include "simulated_windows.h"

struct DescribedWindows::Private
{
};

DescribedWindows::DescribedWindows(machine::Machine machine)
{
    simulated::reset();
    simulated::install(std::move(machine));
}

DescribedWindows::~DescribedWindows()
{
    simulated::installNothing();
}
