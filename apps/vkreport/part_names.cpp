#include "part_names.h"

QStringList exportedSectionNames()
{
#define NAME(function) QStringLiteral(#function),
    return {EXPORTED_SECTIONS(NAME)};
#undef NAME
}
