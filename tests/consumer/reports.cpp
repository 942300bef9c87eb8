// A host that reads a report, writes it as JSON, reads that and compares. Prints what fails.

#include <vkReports.h>

#include <cstdio>

using namespace velkor::Reports;

namespace {

int problems = 0;

void check(bool succeeded, const char *what)
{
    if (succeeded)
        return;
    std::printf("wrong: %s\n", what);
    ++problems;
}

const char reportText[] = "############ Windows specific section ###########\n"
                          "Memory Information:\n"
                          "MemoryLoad:            45%\n"
                          "TotalPhys:             17055318016 Byte = 15.8 GByte\n"
                          "AvailPhys:             9216737280 Byte = 8.5 GByte\n"
                          "TotalPageFile:         19605454848 Byte = 18.2 GByte\n"
                          "AvailPageFile:         10527457280 Byte = 9.8 GByte\n"
                          "TotalVirtual:          140737488224256 Byte = 131071.9 GByte\n"
                          "AvailVirtual:          138533931294720 Byte = 129019.7 GByte\n"
                          "------------------------------------------------------------------------\n";

void checkMemory(const Document &document)
{
    const int section = document.findSection("memoryInfo");
    check(section >= 0, "the section is found");
    if (section < 0)
        return;
    const Fact *total = document.find(section, -1, "totalPhys");
    check(total && document.bytes64(*total) == quint64(17055318016), "the memory is read");
}

void checkJson(const Document &document)
{
    const QByteArray json = toJson(document);
    check(json.contains("\"17055318016\""), "the JSON has the memory");
    QString error;
    const std::optional<Document> again = fromJson(json, &error);
    check(again && again->bytes() == document.bytes(), "the JSON gives the same text");
    check(!fromJson("{}", &error) && !error.isEmpty(), "other JSON gives an error");
}

void checkComparison(const Document &document)
{
    check(compare(document, document).same(), "a report is the same as itself");
    QByteArray moreMemory = document.bytes();
    moreMemory.replace("17055318016 Byte = 15.8 GByte", "34110636032 Byte = 31.8 GByte");
    const Comparison comparison = compare(document, read(moreMemory));
    check(comparison.changes.size() == 1 && comparison.changes.front().order == Order::NewIsNewer,
          "more memory is a difference");
    check(!comparisonText(comparison, {}).isEmpty(), "the difference has a text");
}

} // namespace

int main()
{
    const Document document = read(reportText);
    check(toText(document) == reportText, "the text is unchanged");
    check(!summary(document).empty(), "the report has a summary");
    check(!toMarkdown(document).isEmpty() && toHtml(document).startsWith("<!DOCTYPE html>"), "formats for people");
    checkMemory(document);
    checkJson(document);
    checkComparison(document);
    std::printf("vkReports: %d problems\n", problems);
    return problems == 0 ? 0 : 1;
}
