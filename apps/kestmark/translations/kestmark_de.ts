<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CheckCommand</name>
    <message>
        <source>cannot read the standard input: %1</source>
        <translation>die Standardeingabe ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>; &quot;kestmark check -&quot; reads a pipe</source>
        <translation>; „kestmark check -“ liest eine Pipe</translation>
    </message>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1 ist nicht lesbar: %2</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>
Reads what a solver component prints, from a file or from the standard input, with the parser
of the suite&apos;s applications. Shows line by line which messages they get from it, and remarks
on what is probably a mistake.

  --remarks      show only the lines with remarks
  --json         the same as JSON
  -h, --help     show this help
  -v, --version  show the version

Exit code: 0 nothing to remark, 1 remarks, 2 the output could not be read or the command line is wrong.
</source>
        <translation>
Liest mit dem Parser der Anwendungen, was eine Löserkomponente ausgibt, aus einer Datei oder von
der Standardeingabe. Zeigt Zeile für Zeile, welche Meldungen die Anwendungen daraus erhalten, und
merkt an, was wohl ein Fehler ist.

  --remarks      nur die Zeilen mit Anmerkungen zeigen
  --json         dasselbe als JSON, auf Englisch
  -h, --help     diese Hilfe zeigen
  -v, --version  die Version zeigen

Exit-Code: 0 keine Anmerkung, 1 Anmerkungen, 2 die Ausgabe war nicht lesbar oder die Befehlszeile ist falsch.
</translation>
    </message>
</context>
<context>
    <name>Quoted</name>
    <message>
        <source>&quot;%1%2&quot;</source>
        <translation>„%1%2“</translation>
    </message>
</context>
<context>
    <name>Remark</name>
    <message>
        <source>there is no &quot;:&quot; behind its number</source>
        <translation>hinter ihrer Nummer steht kein „:“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing</source>
        <translation>„%1“ fehlt</translation>
    </message>
    <message>
        <source>shown in the output, but neither counted nor listed: %1; write &quot;%2NUMBER: TEXT&quot;</source>
        <translation>in der Ausgabe gezeigt, aber weder gezählt noch aufgeführt: %1; schreiben Sie „%2NUMMER: TEXT“</translation>
    </message>
    <message>
        <source>listed without a description: nothing stands behind the last &quot;:&quot;</source>
        <translation>ohne Beschreibung aufgeführt: hinter dem letzten „:“ steht nichts</translation>
    </message>
    <message>
        <source>the description in the table is only what stands behind the last &quot;:&quot;; write no other &quot;:&quot; in the text</source>
        <translation>die Beschreibung in der Tabelle ist nur, was hinter dem letzten „:“ steht; schreiben Sie kein anderes „:“ in den Text</translation>
    </message>
    <message>
        <source>the phase goes back from %1 % to %2 %; a new phase begins with 0 %</source>
        <translation>die Phase geht von %1 % auf %2 % zurück; eine neue Phase beginnt mit 0 %</translation>
    </message>
    <message>
        <source>the total goes back from %1 % to %2 %</source>
        <translation>der Gesamtfortschritt geht von %1 % auf %2 % zurück</translation>
    </message>
    <message>
        <source>the library&apos;s process dialog ends the application at a variable, unless the application handles it; kestdesk shows it as text</source>
        <translation>der Prozessdialog der Bibliothek beendet die Anwendung bei einer Variablen, wenn die Anwendung sie nicht behandelt; kestdesk zeigt sie als Text</translation>
    </message>
    <message>
        <source>line %1, which is longer than a megabyte, has no line end: all of it is lost, also what is listed here</source>
        <translation>Zeile %1, die länger als ein Megabyte ist, hat kein Zeilenende: sie geht ganz verloren, auch was hier aufgeführt ist</translation>
    </message>
    <message>
        <source>the last line, %1, has no line end: it is lost</source>
        <translation>die letzte Zeile, %1, hat kein Zeilenende: sie geht verloren</translation>
    </message>
    <message>
        <source>no total percentage is reported: the run is shown as a fault</source>
        <translation>kein Gesamtfortschritt wird gemeldet: der Lauf gilt als fehlerhaft</translation>
    </message>
    <message>
        <source>the last total percentage is %1: the run is shown as a fault</source>
        <translation>der letzte Gesamtfortschritt ist %1: der Lauf gilt als fehlerhaft</translation>
    </message>
    <message>
        <source>no number</source>
        <translation>keine Zahl</translation>
    </message>
    <message>
        <source>%1 is read as %2: only whole numbers of up to three digits directly in front of &quot;%&quot; count</source>
        <translation>%1 wird als %2 gelesen: nur ganze Zahlen mit höchstens drei Ziffern direkt vor „%“ zählen</translation>
    </message>
    <message>
        <source>%1 % is ignored: it is more than 100</source>
        <translation>%1 % wird ignoriert: es ist mehr als 100</translation>
    </message>
    <message>
        <source>a marker is &quot;-*-&quot;, lowercase letters with at most one &quot;-&quot; among them, and &quot;-*-&quot;</source>
        <translation>eine Marke ist „-*-“, Kleinbuchstaben mit höchstens einem „-“ dazwischen, und „-*-“</translation>
    </message>
    <message>
        <source>write %1</source>
        <translation>schreiben Sie %1</translation>
    </message>
    <message>
        <source>%1 is no marker and is shown as text; %2</source>
        <translation>%1 ist keine Marke und wird als Text gezeigt; %2</translation>
    </message>
    <message>
        <source>shown as ordinary output; write -*-%1-*- in front of it</source>
        <translation>als gewöhnliche Ausgabe gezeigt; schreiben Sie -*-%1-*- davor</translation>
    </message>
    <message>
        <source>%1 has no meaning: it is removed, and the text behind it is shown as ordinary output</source>
        <translation>%1 hat keine Bedeutung: es wird entfernt, und der Text dahinter wird als gewöhnliche Ausgabe gezeigt</translation>
    </message>
    <message>
        <source>; %1 was probably meant</source>
        <translation>; gemeint war wohl %1</translation>
    </message>
    <message>
        <source>%1 is dropped: a line feed has no text</source>
        <translation>%1 entfällt: ein Zeilenvorschub hat keinen Text</translation>
    </message>
    <message>
        <source>no text stands behind the marker</source>
        <translation>hinter der Marke steht kein Text</translation>
    </message>
    <message>
        <source>%1 is dropped: it stands in front of the first marker of the line</source>
        <translation>%1 entfällt: es steht vor der ersten Marke der Zeile</translation>
    </message>
    <message>
        <source>what the parallel runtime prints when it closes its sockets is removed</source>
        <translation>was die parallele Laufzeit beim Schließen ihrer Sockets ausgibt, wird entfernt</translation>
    </message>
    <message>
        <source>not UTF-8: bytes that cannot be read are shown as %1</source>
        <translation>kein UTF-8: nicht lesbare Bytes werden als %1 gezeigt</translation>
    </message>
    <message>
        <source>carriage returns are removed, and the text in front of them and behind them is joined; print whole lines</source>
        <translation>Wagenrückläufe werden entfernt und der Text davor und dahinter verbunden; geben Sie ganze Zeilen aus</translation>
    </message>
    <message>
        <source>control characters, such as those of colours, are not interpreted</source>
        <translation>Steuerzeichen, etwa die von Farben, werden nicht ausgewertet</translation>
    </message>
    <message>
        <source>longer than 1023 bytes: it arrives in pieces, and each is read like a line of its own</source>
        <translation>länger als 1023 Bytes: sie kommt in Stücken an, und jedes wird wie eine eigene Zeile gelesen</translation>
    </message>
    <message>
        <source>a character is lost where the line is cut</source>
        <translation>wo die Zeile zerteilt ist, geht ein Zeichen verloren</translation>
    </message>
    <message>
        <source>%1 is not recognised, because the line is cut within it</source>
        <translation>%1 wird nicht erkannt, weil die Zeile darin zerteilt ist</translation>
    </message>
</context>
<context>
    <name>Subcommand</name>
    <message>
        <source>explain what the suite makes of a solver&apos;s output</source>
        <translation>erklärt, was die Suite aus der Ausgabe eines Lösers macht</translation>
    </message>
</context>
<context>
    <name>TextReport</name>
    <message>
        <source>... (%1 characters)</source>
        <translation>… (%1 Zeichen)</translation>
    </message>
    <message>
        <source>&quot;%1&quot;</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>an empty line</source>
        <translation>eine leere Zeile</translation>
    </message>
    <message>
        <source>, repeated from the marker before</source>
        <translation>, von der Marke davor wiederholt</translation>
    </message>
    <message>
        <source>, listed as %1 | %2</source>
        <translation>, aufgeführt als %1 | %2</translation>
    </message>
    <message>
        <source>%1 line</source>
        <translation>%1 Zeile</translation>
    </message>
    <message>
        <source>%1 lines</source>
        <translation>%1 Zeilen</translation>
    </message>
    <message>
        <source>%1 remark</source>
        <translation>%1 Anmerkung</translation>
    </message>
    <message>
        <source>%1 remarks</source>
        <translation>%1 Anmerkungen</translation>
    </message>
    <message>
        <source>no messages</source>
        <translation>keine Meldungen</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
</context>
</TS>
