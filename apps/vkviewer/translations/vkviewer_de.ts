<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AlignedTextModel</name>
    <message>
        <source>no such line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>removed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>added: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AlignedTextView</name>
    <message>
        <source>Text of the older report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text of the newer report</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ComparisonNotes</name>
    <message>
        <source>The beginning of %1 is missing. What it said is compared as if it had been removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end of %1 is missing. What it said is compared as if it had been removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sections in the middle of %1 are missing. They are compared as if they had been removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are several reports in %1. Only the first one is compared.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines of %1 were wrapped. Where they were joined again, a value can seem to differ.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Runs of spaces of %1 were shortened. A value can seem to differ.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some lines of %1 may be a value or the structure of the report.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no report in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 difference</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n differences</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>1 row matches the filter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n rows match the filter.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing differs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 value that changes every moment differs, too.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n values that change every moment differ, too.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>1 value that changes every moment is not shown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n values that change every moment are not shown.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>report without a name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ComparisonTableModel</name>
    <message>
        <source>(not there)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>other than the first: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ComparisonTableView</name>
    <message>
        <source>&amp;Filter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Part of a name or of a value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show what changes every &amp;moment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Times, free memory, process ids</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What differs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values, one column a report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is nothing to compare.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comparing…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is not enough memory to compare these reports.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ComparisonView</name>
    <message>
        <source>Older:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Swap sides</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take the older report for the newer one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Newer:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous difference (Shift+F8)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous difference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next difference (F8)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next difference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show what changes every &amp;moment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Times, free memory, process ids</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sections that differ</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Differences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is nothing to compare.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comparing…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is not enough memory to compare these reports.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DifferenceModel</name>
    <message>
        <source>Change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Older value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Newer value</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DifferenceWords</name>
    <message>
        <source>added</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>removed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>other order</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>newer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>older</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>larger</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>smaller</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the whole section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, every moment</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FactMeaning</name>
    <message>
        <source>a user&apos;s name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the name of a computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an organisation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a serial number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a printer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the label of a drive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a network drive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a secret</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It changes every moment.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It changes slowly.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It can reveal %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its unit is %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FactModel</name>
    <message>
        <source>Fact</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Item</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FactTable</name>
    <message>
        <source>&amp;Filter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show only facts with this text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Facts</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n fact(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n fact(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Previous hit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous hit (Shift+F3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next hit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next hit (F3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Match case</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close the find bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close (Esc)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number of hits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No hits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>third of 17 hits: 3 of 17</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hits: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, continued at the other end</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoadedReport</name>
    <message>
        <source>There is no file &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a folder. Open a file in it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no ordinary file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Cancel &amp;loading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reports (*.txt *.json *.log *.eml);;All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Only the first %n file(s) are opened.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no text in &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dropped text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 - System reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compare with earlier reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Comparison of %n report(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>About vkviewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>vkviewer %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows, compares and redacts system reports of vkSystemInfo. It sends nothing.

Qt %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New report of this machine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open from c&amp;lipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Compare with...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compare open &amp;reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save as...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save as P&amp;DF...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close &amp;tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find &amp;next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find &amp;previous</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter fac&amp;ts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Summary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Outline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Facts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Hide personal data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom o&amp;ut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Usual size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show what changes every &amp;moment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Section...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Next section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Previous section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next &amp;difference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous d&amp;ifference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next &amp;tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous ta&amp;b</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About vkviewer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>R&amp;ecent reports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Clear this list</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MarkStrip</name>
    <message>
        <source>Marks in the whole text</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MessageBar</name>
    <message>
        <source>Messages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close the messages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n more message(s): see the tooltip.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OutlineModel</name>
    <message>
        <source>%1 (report %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Summary</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportLoader</name>
    <message>
        <source>There is too little memory for this report.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReportPage</name>
    <message>
        <source>Outline of the report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text of the report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RowCopier</name>
    <message>
        <source>&amp;Copy rows</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SectionDialog</name>
    <message>
        <source>Go to section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (report %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;A few letters of the section:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A few letters of the section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sections</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SectionModel</name>
    <message>
        <source>All sections</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Section</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ShortcutList</name>
    <message>
        <source>Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Command</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>&amp;Recent reports:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Make a report of this machine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It stays on this machine until you send it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open a report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text from a file or a mail, or JSON. You can also drop files here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent reports</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StateSentences</name>
    <message>
        <source>This text contains no system report.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The text contains several reports.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The beginning of the report is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end of the report is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sections in the middle of the report are missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values look like parts of the format, so that facts may be wrong.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some bytes are no UTF-8. They are shown as U+FFFD.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Long lines were wrapped. Some values may be incomplete.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is text that does not belong to a report.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The report was quoted in a mail (&quot;&gt;&quot;).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Several spaces in a row became one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spaces at the beginning of lines were removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spaces at the end of lines were removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spaces were replaced by no-break spaces or tabs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dates have digits other than 0 to 9.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The text was UTF-16.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The text begins with a byte-order mark.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lines end with carriage returns.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SummaryModel</name>
    <message>
        <source>Property</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SummaryPage</name>
    <message>
        <source>Summary of the report</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TextView</name>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Shows system reports in a window. Compares them if there are several files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>report to open: text or JSON</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
