<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>one model at a time in a window</source>
        <translation>im Fenster nur ein Modell auf einmal</translation>
    </message>
    <message>
        <source>--line needs a model</source>
        <translation>--line braucht ein Modell</translation>
    </message>
    <message>
        <source>--line takes a number from 1 on and not &apos;%1&apos;</source>
        <translation>--line nimmt eine Zahl ab 1 und nicht „%1“</translation>
    </message>
    <message>
        <source>--line is for the window</source>
        <translation>--line ist für das Fenster</translation>
    </message>
    <message>
        <source>Edits models and checks them while they are edited.</source>
        <translation>Bearbeitet Modelle und prüft sie dabei.</translation>
    </message>
    <message>
        <source>0 no errors, 1 errors, 2 wrong command line.</source>
        <translation>0 keine Fehler, 1 Fehler, 2 falsche Befehlszeile.</translation>
    </message>
    <message>
        <source>Check the models as prekest does, without a window.</source>
        <translation>Die Modelle prüfen wie prekest, ohne Fenster.</translation>
    </message>
    <message>
        <source>checks models in this terminal</source>
        <translation>prüft Modelle in diesem Terminal</translation>
    </message>
    <message>
        <source>Go to that line of the model.</source>
        <translation>Zu dieser Zeile des Modells gehen.</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Model (*.nec).</source>
        <translation>Modell (*.nec).</translation>
    </message>
    <message>
        <source>[model...]</source>
        <translation>[Modell...]</translation>
    </message>
</context>
<context>
    <name>DeckEditor</name>
    <message>
        <source>Deck</source>
        <translation>Modelltext</translation>
    </message>
</context>
<context>
    <name>DeckFile</name>
    <message>
        <source>it holds characters that are no text</source>
        <translation>sie enthält Zeichen, die kein Text sind</translation>
    </message>
    <message>
        <source>it holds characters that the file&apos;s encoding (Latin-1) lacks</source>
        <translation>sie enthält Zeichen, die in der Kodierung der Datei (Latin-1) fehlen</translation>
    </message>
</context>
<context>
    <name>EditorWindow</name>
    <message>
        <source>Models (*.nec);;All (*)</source>
        <translation>Modelle (*.nec);;Alle (*)</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Edits models and checks them while they are edited.</source>
        <translation>Bearbeitet Modelle und prüft sie dabei.</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Next finding</source>
        <translation>&amp;Nächster Befund</translation>
    </message>
    <message>
        <source>Open a model</source>
        <translation>Ein Modell öffnen</translation>
    </message>
    <message>
        <source>Model not opened</source>
        <translation>Modell nicht geöffnet</translation>
    </message>
    <message>
        <source>%1
cannot be edited: %2.</source>
        <translation>%1
kann nicht bearbeitet werden: %2.</translation>
    </message>
    <message>
        <source>Of %1 models that were dropped, one was opened</source>
        <translation>Von %1 abgelegten Modellen wurde eines geöffnet</translation>
    </message>
    <message>
        <source>Save the model as</source>
        <translation>Modell speichern unter</translation>
    </message>
    <message>
        <source>Model not saved</source>
        <translation>Modell nicht gespeichert</translation>
    </message>
    <message>
        <source>%1
cannot be written: %2.</source>
        <translation>%1
kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Errors: %1  Warnings: %2</source>
        <translation>Fehler: %1  Warnungen: %2</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>The model has been changed. Save it?</source>
        <translation>Das Modell wurde geändert. Soll es gespeichert werden?</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The file has changed</source>
        <translation>Die Datei hat sich geändert</translation>
    </message>
    <message>
        <source>%1
was changed by another program since it was opened here. Replace what that wrote?</source>
        <translation>%1
wurde von einem anderen Programm geändert, seit sie hier geöffnet wurde. Soll ersetzt werden, was jenes geschrieben hat?</translation>
    </message>
    <message>
        <source>New model</source>
        <translation>Neues Modell</translation>
    </message>
</context>
<context>
    <name>FindingMend</name>
    <message>
        <source>&amp;Insert %1</source>
        <translation>%1 &amp;einfügen</translation>
    </message>
    <message>
        <source>Remove the &amp;blanks</source>
        <translation>&amp;Leerzeichen entfernen</translation>
    </message>
</context>
<context>
    <name>FindingMender</name>
    <message>
        <source>&amp;Mend</source>
        <translation>Be&amp;heben</translation>
    </message>
    <message>
        <source>Select a finding that can be mended in one step</source>
        <translation>Wählen Sie einen Befund, der sich in einem Schritt beheben lässt</translation>
    </message>
    <message>
        <source>Inserts &quot;%1&quot; as line %2</source>
        <translation>Fügt „%1“ als Zeile %2 ein</translation>
    </message>
    <message>
        <source>Makes line %1 &quot;%2&quot;</source>
        <translation>Macht Zeile %1 zu „%2“</translation>
    </message>
</context>
</TS>
