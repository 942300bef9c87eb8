<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>ComparisonNotes</name>
    <message numerus="yes">
        <source>%n differences</source>
        <translation>
            <numerusform>%n difference</numerusform>
            <numerusform>%n differences</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n rows match the filter.</source>
        <translation>
            <numerusform>%n row matches the filter.</numerusform>
            <numerusform>%n rows match the filter.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values that change every moment differ, too.</source>
        <translation>
            <numerusform>%n value that changes every moment differs, too.</numerusform>
            <numerusform>%n values that change every moment differ, too.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values that change every moment are not shown.</source>
        <translation>
            <numerusform>%n value that changes every moment is not shown.</numerusform>
            <numerusform>%n values that change every moment are not shown.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>In %n sections only the text differs, such as its order.</source>
        <translation>
            <numerusform>In %n section only the text differs, such as its order.</numerusform>
            <numerusform>In %n sections only the text differs, such as its order.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FactTable</name>
    <message numerus="yes">
        <source>%n fact(s)</source>
        <translation>
            <numerusform>%n fact</numerusform>
            <numerusform>%n facts</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n fact(s)</source>
        <translation>
            <numerusform>%1 of %n fact</numerusform>
            <numerusform>%1 of %n facts</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>Only the first %n file(s) are opened.</source>
        <translation>
            <numerusform>Only the first file is opened.</numerusform>
            <numerusform>Only the first %n files are opened.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Comparison of %n report(s)</source>
        <translation>
            <numerusform>Comparison of %n report</numerusform>
            <numerusform>Comparison of %n reports</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MessageBar</name>
    <message numerus="yes">
        <source>%n more message(s): see the tooltip.</source>
        <translation>
            <numerusform>%n more message: see the tooltip.</numerusform>
            <numerusform>%n more messages: see the tooltip.</numerusform>
        </translation>
    </message>
</context>
</TS>
