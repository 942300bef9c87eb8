// Keeps the optimiser from leaving out what makes a value that nobody reads.
#pragma once

namespace bench {

void keepAddress(const void *address);

template <typename T>
void keep(const T &value)
{
    keepAddress(&value);
}

} // namespace bench
