// Makes the text that the options request, in children that may crash or hang.
#pragma once

#include "made_text.h"
#include "options.h"

MadeText makeText(const Options &options);
