// stub
#include "test_main.h"
