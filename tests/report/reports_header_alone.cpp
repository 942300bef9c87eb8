#include <vkReports.h>

// A public header compiles alone, under strict flags.
bool reportsHeaderAlone(const velkor::Reports::Document &document)
{
    return velkor::Reports::compare(document, velkor::Reports::Document()).same();
}
