// What labels of a report mean.
#pragma once

#include "vkReports.h"

/// Plain text for people: the fact and its unit, how often it changes, what it reveals.
QString factMeaning(const velkor::Reports::FactRow &row);

/// What a line of the text is about: the meaning of its fact or section. Empty if nothing is known. \a offset is one of
/// Document::text().
QString meaningAt(const velkor::Reports::Document &document, int offset);

/// The first fact in the line at \a offset that ends at or after it, else the last one of the line; -1 if there is none.
int factAt(const velkor::Reports::Document &document, int offset);

/// The section that contains \a offset; -1 if there is none.
int sectionAt(const velkor::Reports::Document &document, int offset);
