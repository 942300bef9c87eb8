// What tests say about a document.
#pragma once

#include "vkReports.h"

/// The path of an item: "deviceClass Display > driver PCI\VEN_1002"; empty for -1.
QString itemPath(const velkor::Reports::Document &document, int item);

/// The name of the section that the fact stands in.
QString sectionName(const velkor::Reports::Document &document, int fact);

/// What is wrong with the places of the document: a gap, an overlap, a fact outside of its item. Empty
/// if every byte is in one place.
QString flawOfPlaces(const velkor::Reports::Document &document);

/// The number of lines that no rule knows.
int otherLines(const velkor::Reports::Document &document);

QByteArray contentsOf(const QString &fileName);
