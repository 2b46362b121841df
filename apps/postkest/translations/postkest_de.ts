<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>The file to write: .png, .svg, or .csv for a table of all results. Without it a .png beside the first result.</source>
        <translation>Die Datei, die geschrieben wird: .png, .svg, oder .csv für eine Tabelle aller Ergebnisse. Ohne Angabe eine .png neben dem ersten Ergebnis.</translation>
    </message>
    <message>
        <source>Shows what runs of solver components found: resistance, reactance and standing wave ratio over frequency.</source>
        <translation>Zeigt, was Läufe von Solver-Komponenten ergeben haben: Wirkwiderstand, Blindwiderstand und Stehwellenverhältnis über der Frequenz.</translation>
    </message>
    <message>
        <source>0 written, 1 a result or the file to write is bad, 2 wrong command line.</source>
        <translation>0 geschrieben, 1 ein Ergebnis oder die Ausgabedatei ist fehlerhaft, 2 falsche Befehlszeile.</translation>
    </message>
    <message>
        <source>Write the charts into a file, without a window.</source>
        <translation>Die Diagramme in eine Datei schreiben, ohne Fenster.</translation>
    </message>
    <message>
        <source>writes charts without one</source>
        <translation>schreibt Diagramme ohne Anzeige</translation>
    </message>
    <message>
        <source>result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Results (*.csv).</source>
        <translation>Ergebnisse (*.csv).</translation>
    </message>
    <message>
        <source>[result...]</source>
        <translation>[Ergebnis...]</translation>
    </message>
</context>
<context>
    <name>Export</name>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 is a result of a run: it is not overwritten</source>
        <translation>%1 ist ein Ergebnis eines Laufs: es wird nicht überschrieben</translation>
    </message>
    <message>
        <source>%1 is neither .png nor .svg nor .csv</source>
        <translation>%1 ist weder .png noch .svg noch .csv</translation>
    </message>
</context>
<context>
    <name>QuantityChart</name>
    <message>
        <source>Resistance / Ω</source>
        <translation>Wirkwiderstand / Ω</translation>
    </message>
    <message>
        <source>Reactance / Ω</source>
        <translation>Blindwiderstand / Ω</translation>
    </message>
    <message>
        <source>SWR (50 Ω)</source>
        <translation>SWV (50 Ω)</translation>
    </message>
    <message>
        <source>Frequency / MHz</source>
        <translation>Frequenz / MHz</translation>
    </message>
</context>
<context>
    <name>ResultView</name>
    <message>
        <source>Point at a chart, or use the arrow keys, to read values.</source>
        <translation>Zeigen Sie auf ein Diagramm oder drücken Sie die Pfeiltasten, um Werte abzulesen.</translation>
    </message>
    <message>
        <source>Open results of runs (Ctrl+O), or drop them on this window.</source>
        <translation>Öffnen Sie Ergebnisse von Läufen (Strg+O) oder legen Sie sie auf diesem Fenster ab.</translation>
    </message>
    <message>
        <source>SWR %1</source>
        <translation>SWV %1</translation>
    </message>
</context>
<context>
    <name>ViewerWindow</name>
    <message>
        <source>Shows what runs of solver components found.</source>
        <translation>Zeigt, was Läufe von Solver-Komponenten ergeben haben.</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open results...</source>
        <translation>Ergebnisse ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>E&amp;xportieren …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>Re&amp;move result</source>
        <translation>Ergebnis &amp;entfernen</translation>
    </message>
    <message>
        <source>Open results</source>
        <translation>Ergebnisse öffnen</translation>
    </message>
    <message>
        <source>Results (*.csv);;All (*)</source>
        <translation>Ergebnisse (*.csv);;Alle (*)</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Picture (*.png);;Drawing (*.svg);;Table (*.csv)</source>
        <translation>Bild (*.png);;Zeichnung (*.svg);;Tabelle (*.csv)</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Geschrieben: %1</translation>
    </message>
    <message>
        <source>Not exported</source>
        <translation>Nicht exportiert</translation>
    </message>
    <message>
        <source>Read again: %1</source>
        <translation>Neu gelesen: %1</translation>
    </message>
    <message>
        <source>%1
Not shown: %2</source>
        <translation>%1
Nicht gezeigt: %2</translation>
    </message>
    <message>
        <source>%1 is not shown: %2</source>
        <translation>%1 wird nicht gezeigt: %2</translation>
    </message>
</context>
</TS>
