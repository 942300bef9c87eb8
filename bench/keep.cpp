#include "keep.h"

namespace bench {

void keepAddress(const void *)
{ } // in a file of its own, where the optimiser does not see it

} // namespace bench
