<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AliasModel</name>
    <message>
        <source>Environment</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>a value of an environment variable became its length</source>
        <translation>der Wert einer Umgebungsvariable wurde zu seiner Länge</translation>
    </message>
    <message>
        <source>Instead</source>
        <translation>Stattdessen</translation>
    </message>
    <message>
        <source>Of what</source>
        <translation>Wovon</translation>
    </message>
    <message>
        <source>Places</source>
        <translation>Stellen</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
</context>
<context>
    <name>AlignedTextModel</name>
    <message>
        <source>no such line</source>
        <translation>keine solche Zeile</translation>
    </message>
    <message>
        <source>changed: %1</source>
        <translation>geändert: %1</translation>
    </message>
    <message>
        <source>removed: %1</source>
        <translation>entfallen: %1</translation>
    </message>
    <message>
        <source>added: %1</source>
        <translation>neu: %1</translation>
    </message>
</context>
<context>
    <name>AlignedTextView</name>
    <message>
        <source>Text of the older report</source>
        <translation>Text des älteren Berichts</translation>
    </message>
    <message>
        <source>Text of the newer report</source>
        <translation>Text des neueren Berichts</translation>
    </message>
</context>
<context>
    <name>CloseTabButton</name>
    <message>
        <source>Close tab</source>
        <translation>Tab schließen</translation>
    </message>
</context>
<context>
    <name>ComparisonNotes</name>
    <message>
        <source>The beginning of %1 is missing. What it said is compared as if it had been removed.</source>
        <translation>Der Anfang von %1 fehlt. Was dort stand, wird verglichen, als wäre es entfallen.</translation>
    </message>
    <message>
        <source>The end of %1 is missing. What it said is compared as if it had been removed.</source>
        <translation>Das Ende von %1 fehlt. Was dort stand, wird verglichen, als wäre es entfallen.</translation>
    </message>
    <message>
        <source>Sections in the middle of %1 are missing. They are compared as if they had been removed.</source>
        <translation>In der Mitte von %1 fehlen Abschnitte. Sie werden verglichen, als wären sie entfallen.</translation>
    </message>
    <message>
        <source>There are several reports in %1. Only the first one is compared.</source>
        <translation>In %1 stehen mehrere Berichte. Nur der erste wird verglichen.</translation>
    </message>
    <message>
        <source>Lines of %1 were wrapped. Where they were joined again, a value can seem to differ.</source>
        <translation>Zeilen von %1 wurden umbrochen. Wo sie wieder verbunden sind, kann ein Wert verschieden scheinen.</translation>
    </message>
    <message>
        <source>Runs of spaces of %1 were shortened. A value can seem to differ.</source>
        <translation>Mehrere Leerzeichen von %1 wurden gekürzt. Ein Wert kann verschieden scheinen.</translation>
    </message>
    <message>
        <source>Some lines of %1 may be a value or the structure of the report.</source>
        <translation>Einige Zeilen von %1 können ein Wert oder der Aufbau des Berichts sein.</translation>
    </message>
    <message>
        <source>There is no report in %1.</source>
        <translation>In %1 steht kein Bericht.</translation>
    </message>
    <message>
        <source>1 difference</source>
        <translation>1 Unterschied</translation>
    </message>
    <message numerus="yes">
        <source>%n differences</source>
        <translation>
            <numerusform>%n Unterschied</numerusform>
            <numerusform>%n Unterschiede</numerusform>
        </translation>
    </message>
    <message>
        <source>1 row matches the filter.</source>
        <translation>1 Zeile passt zum Filter.</translation>
    </message>
    <message numerus="yes">
        <source>%n rows match the filter.</source>
        <translation>
            <numerusform>%n Zeile passt zum Filter.</numerusform>
            <numerusform>%n Zeilen passen zum Filter.</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing differs.</source>
        <translation>Nichts ist verschieden.</translation>
    </message>
    <message>
        <source>1 value that changes every moment differs, too.</source>
        <translation>Dazu ist 1 Wert verschieden, der sich jeden Moment ändert.</translation>
    </message>
    <message numerus="yes">
        <source>%n values that change every moment differ, too.</source>
        <translation>
            <numerusform>Dazu ist %n Wert verschieden, der sich jeden Moment ändert.</numerusform>
            <numerusform>Dazu sind %n Werte verschieden, die sich jeden Moment ändern.</numerusform>
        </translation>
    </message>
    <message>
        <source>1 value that changes every moment is not shown.</source>
        <translation>1 Wert, der sich jeden Moment ändert, wird nicht gezeigt.</translation>
    </message>
    <message numerus="yes">
        <source>%n values that change every moment are not shown.</source>
        <translation>
            <numerusform>%n Wert, der sich jeden Moment ändert, wird nicht gezeigt.</numerusform>
            <numerusform>%n Werte, die sich jeden Moment ändern, werden nicht gezeigt.</numerusform>
        </translation>
    </message>
    <message>
        <source>report without a name</source>
        <translation>Bericht ohne Namen</translation>
    </message>
    <message>
        <source>In 1 section only the text differs, such as its order.</source>
        <translation>In 1 Abschnitt unterscheidet sich nur der Text, etwa seine Reihenfolge.</translation>
    </message>
    <message numerus="yes">
        <source>In %n sections only the text differs, such as its order.</source>
        <translation>
            <numerusform>In %n Abschnitt unterscheidet sich nur der Text, etwa seine Reihenfolge.</numerusform>
            <numerusform>In %n Abschnitten unterscheidet sich nur der Text, etwa ihre Reihenfolge.</numerusform>
        </translation>
    </message>
    <message>
        <source>Personal data are hidden: an alias is one person or thing in all reports; most environment variables are compared by length.</source>
        <translation>Persönliche Daten sind verborgen: Ein Alias ist in allen Berichten dieselbe Person oder Sache; von den meisten Umgebungsvariablen zählt die Länge.</translation>
    </message>
    <message>
        <source>The comparison contains names, addresses and values of environment variables, also when it is copied or saved: send it only to people who need it.</source>
        <translation>Der Vergleich enthält Namen, Adressen und Werte von Umgebungsvariablen, auch kopiert oder gespeichert: Senden Sie ihn nur an Personen, die ihn brauchen.</translation>
    </message>
    <message>
        <source>Hiding personal data and comparing…</source>
        <translation>Persönliche Daten werden verborgen, Vergleich läuft …</translation>
    </message>
    <message>
        <source>Comparing…</source>
        <translation>Vergleich läuft …</translation>
    </message>
    <message>
        <source>report %1</source>
        <translation>Bericht %1</translation>
    </message>
</context>
<context>
    <name>ComparisonTab</name>
    <message>
        <source>Show what changes every &amp;moment</source>
        <translation>Zeigen, was sich jeden &amp;Moment ändert</translation>
    </message>
    <message>
        <source>Times, free memory, process ids</source>
        <translation>Zeiten, freier Speicher, Prozessnummern</translation>
    </message>
    <message>
        <source>There is not enough memory to compare these reports.</source>
        <translation>Der Speicher reicht nicht, um diese Berichte zu vergleichen.</translation>
    </message>
    <message>
        <source>There is nothing to compare.</source>
        <translation>Es gibt nichts zu vergleichen.</translation>
    </message>
</context>
<context>
    <name>ComparisonTableModel</name>
    <message>
        <source>(not there)</source>
        <translation>(fehlt)</translation>
    </message>
    <message>
        <source>there</source>
        <translation>vorhanden</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
    <message>
        <source>other than the first: %1</source>
        <translation>anders als der erste: %1</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
</context>
<context>
    <name>ComparisonTableView</name>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filter:</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Part of a name or of a value</source>
        <translation>Teil eines Namens oder Wertes</translation>
    </message>
    <message>
        <source>What differs</source>
        <translation>Was verschieden ist</translation>
    </message>
    <message>
        <source>Values, one column a report</source>
        <translation>Werte, eine Spalte je Bericht</translation>
    </message>
</context>
<context>
    <name>ComparisonView</name>
    <message>
        <source>Older:</source>
        <translation>Älter:</translation>
    </message>
    <message>
        <source>&amp;Swap sides</source>
        <translation>Seiten &amp;tauschen</translation>
    </message>
    <message>
        <source>Take the older report for the newer one</source>
        <translation>Den älteren Bericht als den neueren nehmen</translation>
    </message>
    <message>
        <source>Newer:</source>
        <translation>Neuer:</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Previous difference (Shift+F8)</source>
        <translation>Voriger Unterschied (Umschalt+F8)</translation>
    </message>
    <message>
        <source>Previous difference</source>
        <translation>Voriger Unterschied</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>Next difference (F8)</source>
        <translation>Nächster Unterschied (F8)</translation>
    </message>
    <message>
        <source>Next difference</source>
        <translation>Nächster Unterschied</translation>
    </message>
    <message>
        <source>Sections that differ</source>
        <translation>Verschiedene Abschnitte</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Unterschiede</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>CopyBar</name>
    <message>
        <source>The whole text was copied.</source>
        <translation>Der ganze Text wurde kopiert.</translation>
    </message>
    <message>
        <source>Markdown of at most %L1 characters was copied.</source>
        <translation>Markdown mit höchstens %L1 Zeichen wurde kopiert.</translation>
    </message>
    <message>
        <source>The summary was copied.</source>
        <translation>Die Zusammenfassung wurde kopiert.</translation>
    </message>
    <message>
        <source>Names, addresses and secrets are hidden, but the report is not anonymous: its hardware, programs and dates can identify the machine.</source>
        <translation>Namen, Adressen und Geheimnisse sind verborgen, aber der Bericht ist nicht anonym: Geräte, Programme und Daten können den Rechner erkennen lassen.</translation>
    </message>
    <message>
        <source>The report contains names, addresses and all environment variables, which may hold passwords: send it only to people who need it.</source>
        <translation>Der Bericht enthält Namen, Adressen und alle Umgebungsvariablen, in denen Kennwörter stehen können: Senden Sie ihn nur an Menschen, die ihn brauchen.</translation>
    </message>
    <message>
        <source>&amp;Copy text</source>
        <translation>Text &amp;kopieren</translation>
    </message>
    <message>
        <source>Copies the whole text of the report</source>
        <translation>Kopiert den ganzen Text des Berichts</translation>
    </message>
    <message>
        <source>Copy &amp;Markdown</source>
        <translation>&amp;Markdown kopieren</translation>
    </message>
    <message>
        <source>Copies the report for an issue tracker</source>
        <translation>Kopiert den Bericht für ein Fehlerverzeichnis</translation>
    </message>
    <message>
        <source>Copies what support asks for first</source>
        <translation>Kopiert, wonach der Support zuerst fragt</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Speichern ...</translation>
    </message>
    <message>
        <source>Saves the report as text, JSON, web page or Markdown</source>
        <translation>Speichert den Bericht als Text, JSON, Webseite oder Markdown</translation>
    </message>
    <message>
        <source>Personal data are being hidden. Until then nothing can be copied or saved.</source>
        <translation>Persönliche Daten werden verborgen. Bis dahin kann nichts kopiert oder gespeichert werden.</translation>
    </message>
    <message>
        <source>Hide &amp;personal data</source>
        <translation>&amp;Persönliche Daten verbergen</translation>
    </message>
    <message>
        <source>Replaces names, addresses and secrets in what is shown, copied and saved</source>
        <translation>Ersetzt Namen, Adressen und Geheimnisse in allem, was gezeigt, kopiert und gespeichert wird</translation>
    </message>
    <message>
        <source>Cop&amp;y summary</source>
        <translation>Z&amp;usammenfassung kopieren</translation>
    </message>
</context>
<context>
    <name>DifferenceModel</name>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Older value</source>
        <translation>Älterer Wert</translation>
    </message>
    <message>
        <source>Newer value</source>
        <translation>Neuerer Wert</translation>
    </message>
</context>
<context>
    <name>DifferenceWords</name>
    <message>
        <source>added</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfallen</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>other order</source>
        <translation>andere Reihenfolge</translation>
    </message>
    <message>
        <source>newer</source>
        <translation>neuer</translation>
    </message>
    <message>
        <source>older</source>
        <translation>älter</translation>
    </message>
    <message>
        <source>larger</source>
        <translation>größer</translation>
    </message>
    <message>
        <source>smaller</source>
        <translation>kleiner</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
    <message>
        <source>the whole section</source>
        <translation>der ganze Abschnitt</translation>
    </message>
    <message>
        <source>%1, every moment</source>
        <translation>%1, jeden Moment</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>FactMeaning</name>
    <message>
        <source>a user&apos;s name</source>
        <translation>den Namen eines Benutzers</translation>
    </message>
    <message>
        <source>the name of a computer</source>
        <translation>den Namen eines Rechners</translation>
    </message>
    <message>
        <source>an organisation</source>
        <translation>eine Organisation</translation>
    </message>
    <message>
        <source>an address</source>
        <translation>eine Adresse</translation>
    </message>
    <message>
        <source>a serial number</source>
        <translation>eine Seriennummer</translation>
    </message>
    <message>
        <source>a path</source>
        <translation>einen Pfad</translation>
    </message>
    <message>
        <source>a printer</source>
        <translation>einen Drucker</translation>
    </message>
    <message>
        <source>the label of a drive</source>
        <translation>die Bezeichnung eines Laufwerks</translation>
    </message>
    <message>
        <source>a network drive</source>
        <translation>ein Netzlaufwerk</translation>
    </message>
    <message>
        <source>a secret</source>
        <translation>ein Geheimnis</translation>
    </message>
    <message>
        <source>It changes every moment.</source>
        <translation>Der Wert ändert sich jeden Moment.</translation>
    </message>
    <message>
        <source>It changes slowly.</source>
        <translation>Der Wert ändert sich langsam.</translation>
    </message>
    <message>
        <source>It can reveal %1.</source>
        <translation>Der Wert kann %1 verraten.</translation>
    </message>
    <message>
        <source>Its unit is %1.</source>
        <translation>Die Einheit ist %1.</translation>
    </message>
</context>
<context>
    <name>FactModel</name>
    <message>
        <source>Fact</source>
        <translation>Angabe</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Gehört zu</translation>
    </message>
</context>
<context>
    <name>FactTable</name>
    <message>
        <source>Show only facts with this text</source>
        <translation>Nur Angaben mit diesem Text zeigen</translation>
    </message>
    <message>
        <source>Facts</source>
        <translation>Angaben</translation>
    </message>
    <message numerus="yes">
        <source>%n fact(s)</source>
        <translation>
            <numerusform>%n Angabe</numerusform>
            <numerusform>%n Angaben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n fact(s)</source>
        <translation>
            <numerusform>%1 von %n Angabe</numerusform>
            <numerusform>%1 von %n Angaben</numerusform>
        </translation>
    </message>
    <message>
        <source>F&amp;ilter:</source>
        <translation>&amp;Filter:</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Go to text</source>
        <translation>&amp;Gehe zum Text</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Previous hit</source>
        <translation>Voriger Treffer</translation>
    </message>
    <message>
        <source>Previous hit (Shift+F3)</source>
        <translation>Voriger Treffer (Umschalt+F3)</translation>
    </message>
    <message>
        <source>Next hit</source>
        <translation>Nächster Treffer</translation>
    </message>
    <message>
        <source>Next hit (F3)</source>
        <translation>Nächster Treffer (F3)</translation>
    </message>
    <message>
        <source>Close the find bar</source>
        <translation>Suchleiste schließen</translation>
    </message>
    <message>
        <source>Close (Esc)</source>
        <translation>Schließen (Esc)</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Number of hits</source>
        <translation>Anzahl der Treffer</translation>
    </message>
    <message>
        <source>No hits</source>
        <translation>Keine Treffer</translation>
    </message>
    <message>
        <source>Searching</source>
        <translation>Suche läuft</translation>
    </message>
    <message>
        <source>Hits: %1</source>
        <translation>Treffer: %1</translation>
    </message>
    <message>
        <source>%1, continued at the other end</source>
        <translation>%1, am anderen Ende fortgesetzt</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>a hit and the number of hits</comment>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>M&amp;atch case</source>
        <translation>Groß/klein b&amp;eachten</translation>
    </message>
    <message>
        <source>Fin&amp;d:</source>
        <translation>Su&amp;chen:</translation>
    </message>
</context>
<context>
    <name>LoadedReport</name>
    <message>
        <source>There is no file &quot;%1&quot;.</source>
        <translation>Es gibt keine Datei „%1“.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a folder. Open a file in it.</source>
        <translation>„%1“ ist ein Ordner. Öffnen Sie eine Datei darin.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no ordinary file.</source>
        <translation>„%1“ ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read: %2</source>
        <translation>„%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Die Datei kann nicht geöffnet werden: %1</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Cancel &amp;loading</source>
        <translation>&amp;Laden abbrechen</translation>
    </message>
    <message>
        <source>Open reports</source>
        <translation>Berichte öffnen</translation>
    </message>
    <message>
        <source>Reports (*.txt *.json *.log *.eml);;All files (*)</source>
        <translation>Berichte (*.txt *.json *.log *.eml);;Alle Dateien (*)</translation>
    </message>
    <message numerus="yes">
        <source>Only the first %n file(s) are opened.</source>
        <translation>
            <numerusform>Nur die erste Datei wird geöffnet.</numerusform>
            <numerusform>Nur die ersten %n Dateien werden geöffnet.</numerusform>
        </translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>There is no text in &quot;%1&quot;.</source>
        <translation>In „%1“ ist kein Text.</translation>
    </message>
    <message>
        <source>Dropped text</source>
        <translation>Abgelegter Text</translation>
    </message>
    <message>
        <source>Loading %1...</source>
        <translation>%1 wird geladen ...</translation>
    </message>
    <message>
        <source>System reports</source>
        <translation>Systemberichte</translation>
    </message>
    <message>
        <source>%1 - System reports</source>
        <translation>%1 - Systemberichte</translation>
    </message>
    <message>
        <source>Compare with earlier reports</source>
        <translation>Mit früheren Berichten vergleichen</translation>
    </message>
    <message numerus="yes">
        <source>Comparison of %n report(s)</source>
        <translation>
            <numerusform>Vergleich von %n Bericht</numerusform>
            <numerusform>Vergleich von %n Berichten</numerusform>
        </translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Bedeutung</translation>
    </message>
    <message>
        <source>Nothing is known about this line.</source>
        <translation>Über diese Zeile ist nichts bekannt.</translation>
    </message>
    <message>
        <source>About vkviewer</source>
        <translation>Über vkviewer</translation>
    </message>
    <message>
        <source>vkviewer %1</source>
        <translation>vkviewer %1</translation>
    </message>
    <message>
        <source>Shows, compares and redacts system reports of vkSystemInfo. It sends nothing.

Qt %1</source>
        <translation>Zeigt, vergleicht und schwärzt Systemberichte von vkSystemInfo. Das Programm sendet nichts.

Qt %1</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Gehe zu</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;New report of this machine</source>
        <translation>&amp;Neuer Bericht dieses Rechners</translation>
    </message>
    <message>
        <source>New report without Open&amp;GL</source>
        <translation>Neuer Bericht ohne Open&amp;GL</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen ...</translation>
    </message>
    <message>
        <source>Open from c&amp;lipboard</source>
        <translation>Aus der &amp;Zwischenablage öffnen</translation>
    </message>
    <message>
        <source>&amp;Compare with...</source>
        <translation>&amp;Vergleichen mit ...</translation>
    </message>
    <message>
        <source>Compare open &amp;reports</source>
        <translation>&amp;Offene Berichte vergleichen</translation>
    </message>
    <message>
        <source>&amp;Save as...</source>
        <translation>&amp;Speichern unter ...</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken ...</translation>
    </message>
    <message>
        <source>Save as P&amp;DF...</source>
        <translation>Als &amp;PDF speichern ...</translation>
    </message>
    <message>
        <source>Close &amp;tab</source>
        <translation>&amp;Tab schließen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen ...</translation>
    </message>
    <message>
        <source>Find &amp;next</source>
        <translation>&amp;Weitersuchen</translation>
    </message>
    <message>
        <source>Find &amp;previous</source>
        <translation>&amp;Rückwärts suchen</translation>
    </message>
    <message>
        <source>Filter fac&amp;ts</source>
        <translation>Angaben &amp;filtern</translation>
    </message>
    <message>
        <source>&amp;Summary</source>
        <translation>&amp;Zusammenfassung</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>&amp;Text</translation>
    </message>
    <message>
        <source>&amp;Outline</source>
        <translation>&amp;Gliederung</translation>
    </message>
    <message>
        <source>&amp;Facts</source>
        <translation>&amp;Angaben</translation>
    </message>
    <message>
        <source>&amp;Hide personal data</source>
        <translation>&amp;Persönliche Daten verbergen</translation>
    </message>
    <message>
        <source>Hide selectio&amp;n</source>
        <translation>Auswahl ver&amp;bergen</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Vergr&amp;ößern</translation>
    </message>
    <message>
        <source>Zoom o&amp;ut</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Usual si&amp;ze</source>
        <translation>&amp;Übliche Größe</translation>
    </message>
    <message>
        <source>Show what changes every &amp;moment</source>
        <translation>Zeigen, was sich jeden &amp;Moment ändert</translation>
    </message>
    <message>
        <source>&amp;Section...</source>
        <translation>&amp;Abschnitt ...</translation>
    </message>
    <message>
        <source>&amp;Next section</source>
        <translation>&amp;Nächster Abschnitt</translation>
    </message>
    <message>
        <source>&amp;Previous section</source>
        <translation>&amp;Voriger Abschnitt</translation>
    </message>
    <message>
        <source>Next &amp;difference</source>
        <translation>Nächster &amp;Unterschied</translation>
    </message>
    <message>
        <source>Previous d&amp;ifference</source>
        <translation>Voriger Unter&amp;schied</translation>
    </message>
    <message>
        <source>Next pan&amp;e</source>
        <translation>Nächster B&amp;ereich</translation>
    </message>
    <message>
        <source>Previous p&amp;ane</source>
        <translation>Voriger Bere&amp;ich</translation>
    </message>
    <message>
        <source>Next &amp;tab</source>
        <translation>Nächster &amp;Tab</translation>
    </message>
    <message>
        <source>Previous ta&amp;b</source>
        <translation>Voriger Ta&amp;b</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>&amp;Meaning of the line</source>
        <translation>&amp;Bedeutung der Zeile</translation>
    </message>
    <message>
        <source>&amp;About vkviewer</source>
        <translation>&amp;Über vkviewer</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>R&amp;ecent reports</source>
        <translation>&amp;Letzte Berichte</translation>
    </message>
    <message>
        <source>&amp;Clear this list</source>
        <translation>Diese Liste &amp;leeren</translation>
    </message>
    <message>
        <source>This machine, %1</source>
        <translation>Dieser Rechner, %1</translation>
    </message>
    <message>
        <source>Save the comparison</source>
        <translation>Vergleich speichern</translation>
    </message>
    <message>
        <source>comparison.txt</source>
        <translation>vergleich.txt</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>There is nothing to save: the reports are not compared.</source>
        <translation>Es gibt nichts zu speichern: Die Berichte sind nicht verglichen.</translation>
    </message>
    <message>
        <source>Close tab (%1)</source>
        <translation>Tab schließen (%1)</translation>
    </message>
</context>
<context>
    <name>Making</name>
    <message>
        <source>The screens and OpenGL are not those of this machine, because its display cannot be used.</source>
        <translation>Bildschirme und OpenGL sind nicht die dieses Rechners, denn seine Anzeige kann nicht benutzt werden.</translation>
    </message>
    <message>
        <source>Starting</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>The whole report</source>
        <translation>Der ganze Bericht</translation>
    </message>
    <message>
        <source>The report without OpenGL</source>
        <translation>Der Bericht ohne OpenGL</translation>
    </message>
    <message>
        <source>%1 is missing: it did not end within %2 s.</source>
        <translation>%1 fehlt: endete nicht innerhalb von %2 s.</translation>
    </message>
    <message>
        <source>%1 is missing: it crashed after %2 s.</source>
        <translation>%1 fehlt: stürzte nach %2 s ab.</translation>
    </message>
    <message>
        <source>%1 is missing: it ended the process after %2 s.</source>
        <translation>%1 fehlt: beendete den Prozess nach %2 s.</translation>
    </message>
    <message>
        <source>%1 is missing: it could not be started.</source>
        <translation>%1 fehlt: konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>%1 is missing: the time limit was reached before.</source>
        <translation>%1 fehlt: die Zeit war vorher abgelaufen.</translation>
    </message>
    <message>
        <source>%1 is missing: %2.</source>
        <translation>%1 fehlt: %2.</translation>
    </message>
</context>
<context>
    <name>MakingBar</name>
    <message>
        <source>%1: %2 s of at most %3 s</source>
        <translation>%1: %2 s von höchstens %3 s</translation>
    </message>
    <message>
        <source>%1: %2 s</source>
        <translation>%1: %2 s</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Cancel making the report</source>
        <translation>Erstellen des Berichts abbrechen</translation>
    </message>
    <message>
        <source>Progress of the report</source>
        <translation>Fortschritt des Berichts</translation>
    </message>
    <message>
        <source>A report is being made</source>
        <translation>Ein Bericht wird erstellt</translation>
    </message>
</context>
<context>
    <name>MarkStrip</name>
    <message>
        <source>Marks in the whole text</source>
        <translation>Markierungen im ganzen Text</translation>
    </message>
</context>
<context>
    <name>MessageBar</name>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Close the messages</source>
        <translation>Meldungen schließen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message numerus="yes">
        <source>%n more message(s): see the tooltip.</source>
        <translation>
            <numerusform>%n weitere Meldung: siehe die Kurzhilfe.</numerusform>
            <numerusform>%n weitere Meldungen: siehe die Kurzhilfe.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OutlineModel</name>
    <message>
        <source>%1 (report %2)</source>
        <translation>%1 (Bericht %2)</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Zusammenfassung</translation>
    </message>
</context>
<context>
    <name>Output</name>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>Personal data is hidden; not anonymous</source>
        <translation>Persönliche Daten sind verborgen; nicht anonym</translation>
    </message>
    <message>
        <source>Writing pages...</source>
        <translation>Seiten werden geschrieben ...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Als PDF speichern</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Gespeichert als %1.</translation>
    </message>
    <message>
        <source>The report could not be printed.</source>
        <translation>Der Bericht konnte nicht gedruckt werden.</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Text (*.txt)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>Web page (*.html)</source>
        <translation>Webseite (*.html)</translation>
    </message>
    <message>
        <source>Markdown (*.md)</source>
        <translation>Markdown (*.md)</translation>
    </message>
    <message>
        <source>it is a device or a pipe</source>
        <translation>das ist ein Gerät oder eine Pipe</translation>
    </message>
    <message>
        <source>&apos;%1&apos; could not be saved: %2</source>
        <translation>„%1“ konnte nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>No printer is installed. The report can be saved as PDF.</source>
        <translation>Es ist kein Drucker installiert. Der Bericht kann als PDF gespeichert werden.</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>&amp;Printer:</source>
        <translation>&amp;Drucker:</translation>
    </message>
</context>
<context>
    <name>Redaction</name>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>Domain</source>
        <translation>Domäne</translation>
    </message>
    <message>
        <source>Organisation</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>Product ID</source>
        <translation>Produkt-ID</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>MAC-Adresse</translation>
    </message>
    <message>
        <source>IP address</source>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Drucker</translation>
    </message>
    <message>
        <source>Drive label</source>
        <translation>Laufwerksbezeichnung</translation>
    </message>
    <message>
        <source>Network drive</source>
        <translation>Netzlaufwerk</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Secret</source>
        <translation>Geheimnis</translation>
    </message>
    <message>
        <source>Hidden by hand</source>
        <translation>Von Hand verborgen</translation>
    </message>
    <message>
        <source>a fact of the report reveals it</source>
        <translation>eine Angabe des Berichts verrät es</translation>
    </message>
    <message>
        <source>it occurs elsewhere, too</source>
        <translation>es kommt auch anderswo vor</translation>
    </message>
    <message>
        <source>a path says what it is</source>
        <translation>ein Pfad sagt, was es ist</translation>
    </message>
    <message>
        <source>its form shows what it is</source>
        <translation>seine Form zeigt, was es ist</translation>
    </message>
    <message>
        <source>an environment variable holds it</source>
        <translation>es steht in einer Umgebungsvariable</translation>
    </message>
    <message>
        <source>you hid it</source>
        <translation>Sie haben es verborgen</translation>
    </message>
</context>
<context>
    <name>RedactionPanel</name>
    <message>
        <source>Nothing was found that has to be hidden.</source>
        <translation>Es wurde nichts gefunden, was zu verbergen ist.</translation>
    </message>
    <message>
        <source>Hidden places: %L1. Enter goes from place to place.</source>
        <translation>Verborgene Stellen: %L1. Eingabe geht von Stelle zu Stelle.</translation>
    </message>
    <message>
        <source>Shows again what this stands for, in all places</source>
        <translation>Zeigt an allen Stellen wieder, wofür das steht</translation>
    </message>
    <message>
        <source>Looking for personal data...</source>
        <translation>Persönliche Daten werden gesucht ...</translation>
    </message>
    <message>
        <source>What is hidden in the report</source>
        <translation>Was im Bericht verborgen ist</translation>
    </message>
    <message>
        <source>Shows the next place in the report (Enter)</source>
        <translation>Zeigt die nächste Stelle im Bericht (Eingabe)</translation>
    </message>
    <message>
        <source>&amp;Take back</source>
        <translation>&amp;Zurücknehmen</translation>
    </message>
    <message>
        <source>Hides the text that is selected in the report, wherever it occurs</source>
        <translation>Verbirgt den im Bericht ausgewählten Text, wo immer er vorkommt</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>W&amp;iederholen</translation>
    </message>
    <message>
        <source>Show &amp;originals</source>
        <translation>&amp;Originale zeigen</translation>
    </message>
    <message>
        <source>Shows in the list what stood in the report, apart from secrets</source>
        <translation>Zeigt in der Liste, was im Bericht stand, außer Geheimnissen</translation>
    </message>
    <message>
        <source>Ne&amp;xt place</source>
        <translation>&amp;Nächste Stelle</translation>
    </message>
    <message>
        <source>Hide selectio&amp;n</source>
        <translation>Aus&amp;wahl verbergen</translation>
    </message>
</context>
<context>
    <name>RedactionSession</name>
    <message>
        <source>Values of environment variables stay hidden: nobody knows what they hold.</source>
        <translation>Werte von Umgebungsvariablen bleiben verborgen: niemand weiß, was darin steht.</translation>
    </message>
    <message>
        <source>Secrets stay hidden.</source>
        <translation>Geheimnisse bleiben verborgen.</translation>
    </message>
    <message>
        <source>It cannot be taken back, because it goes over several lines or is too long.</source>
        <translation>Das kann nicht zurückgenommen werden: es geht über mehrere Zeilen oder ist zu lang.</translation>
    </message>
    <message>
        <source>Select a text that is to be hidden.</source>
        <translation>Wählen Sie einen Text aus, der verborgen werden soll.</translation>
    </message>
    <message>
        <source>Select a text within one line.</source>
        <translation>Wählen Sie einen Text innerhalb einer Zeile aus.</translation>
    </message>
    <message>
        <source>The selection contains %1, which is hidden already. Select what is before or after it.</source>
        <translation>Die Auswahl enthält %1, das schon verborgen ist. Wählen Sie aus, was davor oder danach steht.</translation>
    </message>
    <message>
        <source>The selection cannot be hidden: %1.</source>
        <translation>Die Auswahl kann nicht verborgen werden: %1.</translation>
    </message>
    <message>
        <source>Some places stay hidden, because a rule shows that they are personal.</source>
        <translation>Einige Stellen bleiben verborgen, weil eine Regel sie als persönlich erkennt.</translation>
    </message>
    <message>
        <source>Some places stay visible: the words of the format itself are not hidden.</source>
        <translation>Einige Stellen bleiben sichtbar: die Wörter des Formats selbst werden nicht verborgen.</translation>
    </message>
</context>
<context>
    <name>ReportLoader</name>
    <message>
        <source>There is too little memory for this report.</source>
        <translation>Der Speicher reicht für diesen Bericht nicht.</translation>
    </message>
</context>
<context>
    <name>ReportPage</name>
    <message>
        <source>Outline of the report</source>
        <translation>Gliederung des Berichts</translation>
    </message>
    <message>
        <source>Text of the report</source>
        <translation>Text des Berichts</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Hide selection</source>
        <translation>Auswahl &amp;verbergen</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen ...</translation>
    </message>
</context>
<context>
    <name>ReportProcess</name>
    <message>
        <source>The report has more than 512 MByte.</source>
        <translation>Der Bericht hat mehr als 512 MByte.</translation>
    </message>
    <message>
        <source>vkreport crashed. No report could be made.</source>
        <translation>vkreport ist abgestürzt. Es konnte kein Bericht erstellt werden.</translation>
    </message>
    <message>
        <source>No report could be made.</source>
        <translation>Es konnte kein Bericht erstellt werden.</translation>
    </message>
    <message>
        <source>Parts of the report are missing.</source>
        <translation>Teile des Berichts fehlen.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; could not be started: %2</source>
        <translation>„%1“ konnte nicht gestartet werden: %2</translation>
    </message>
</context>
<context>
    <name>RowCopier</name>
    <message>
        <source>&amp;Copy rows</source>
        <translation>Zeilen &amp;kopieren</translation>
    </message>
</context>
<context>
    <name>SectionDialog</name>
    <message>
        <source>Go to section</source>
        <translation>Gehe zu Abschnitt</translation>
    </message>
    <message>
        <source>%1 (report %2)</source>
        <translation>%1 (Bericht %2)</translation>
    </message>
    <message>
        <source>&amp;A few letters of the section:</source>
        <translation>&amp;Einige Buchstaben des Abschnitts:</translation>
    </message>
    <message>
        <source>A few letters of the section</source>
        <translation>Einige Buchstaben des Abschnitts</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Gehe zu</translation>
    </message>
</context>
<context>
    <name>SectionModel</name>
    <message>
        <source>All sections</source>
        <translation>Alle Abschnitte</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Anzahl</translation>
    </message>
</context>
<context>
    <name>ShortcutList</name>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>&amp;Recent reports:</source>
        <translation>&amp;Letzte Berichte:</translation>
    </message>
    <message>
        <source>&amp;Make a report of this machine</source>
        <translation>&amp;Bericht dieses Rechners erstellen</translation>
    </message>
    <message>
        <source>It stays on this machine until you send it.</source>
        <translation>Er bleibt auf diesem Rechner, bis Sie ihn senden.</translation>
    </message>
    <message>
        <source>&amp;Open a report</source>
        <translation>Bericht ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Text from a file or a mail, or JSON. You can also drop files here.</source>
        <translation>Text aus einer Datei oder Mail, oder JSON. Sie können Dateien auch hier ablegen.</translation>
    </message>
    <message>
        <source>Recent reports</source>
        <translation>Letzte Berichte</translation>
    </message>
</context>
<context>
    <name>StateSentences</name>
    <message>
        <source>This text contains no system report.</source>
        <translation>Dieser Text enthält keinen Systembericht.</translation>
    </message>
    <message>
        <source>The text contains several reports.</source>
        <translation>Der Text enthält mehrere Berichte.</translation>
    </message>
    <message>
        <source>The beginning of the report is missing.</source>
        <translation>Der Anfang des Berichts fehlt.</translation>
    </message>
    <message>
        <source>The end of the report is missing.</source>
        <translation>Das Ende des Berichts fehlt.</translation>
    </message>
    <message>
        <source>Sections in the middle of the report are missing.</source>
        <translation>In der Mitte des Berichts fehlen Abschnitte.</translation>
    </message>
    <message>
        <source>Values look like parts of the format, so that facts may be wrong.</source>
        <translation>Werte sehen wie Teile des Formats aus, sodass Angaben falsch sein können.</translation>
    </message>
    <message>
        <source>Some bytes are no UTF-8. They are shown as U+FFFD.</source>
        <translation>Einige Bytes sind kein UTF-8. Sie erscheinen als U+FFFD.</translation>
    </message>
    <message>
        <source>Long lines were wrapped. Some values may be incomplete.</source>
        <translation>Lange Zeilen wurden umbrochen. Einige Werte können unvollständig sein.</translation>
    </message>
    <message>
        <source>There is text that does not belong to a report.</source>
        <translation>Es gibt Text, der nicht zu einem Bericht gehört.</translation>
    </message>
    <message>
        <source>The report was quoted in a mail (&quot;&gt;&quot;).</source>
        <translation>Der Bericht wurde in einer Mail zitiert („&gt;“).</translation>
    </message>
    <message>
        <source>Several spaces in a row became one.</source>
        <translation>Aus mehreren Leerzeichen wurde eines.</translation>
    </message>
    <message>
        <source>Spaces at the beginning of lines were removed.</source>
        <translation>Leerzeichen am Anfang von Zeilen wurden entfernt.</translation>
    </message>
    <message>
        <source>Spaces at the end of lines were removed.</source>
        <translation>Leerzeichen am Ende von Zeilen wurden entfernt.</translation>
    </message>
    <message>
        <source>Spaces were replaced by no-break spaces or tabs.</source>
        <translation>Leerzeichen wurden durch geschützte Leerzeichen oder Tabulatoren ersetzt.</translation>
    </message>
    <message>
        <source>Dates have digits other than 0 to 9.</source>
        <translation>Datumsangaben haben andere Ziffern als 0 bis 9.</translation>
    </message>
    <message>
        <source>The text was UTF-16.</source>
        <translation>Der Text war UTF-16.</translation>
    </message>
    <message>
        <source>The text begins with a byte-order mark.</source>
        <translation>Der Text beginnt mit einer Byte-Reihenfolge-Markierung.</translation>
    </message>
    <message>
        <source>Lines end with carriage returns.</source>
        <translation>Zeilen enden mit Wagenrücklauf.</translation>
    </message>
</context>
<context>
    <name>SummaryModel</name>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
</context>
<context>
    <name>SummaryPage</name>
    <message>
        <source>Summary of the report</source>
        <translation>Zusammenfassung des Berichts</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
</context>
<context>
    <name>TextView</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Shows system reports in a window. Compares them if there are several files.</source>
        <translation>Zeigt Systemberichte in einem Fenster. Vergleicht sie, wenn es mehrere Dateien sind.</translation>
    </message>
    <message>
        <source>report to open: text or JSON</source>
        <translation>zu öffnender Bericht: Text oder JSON</translation>
    </message>
</context>
</TS>
