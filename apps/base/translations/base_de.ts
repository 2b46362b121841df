<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutBox</name>
    <message>
        <source>%1 %2
%3
Installation: %4

%5</source>
        <translation>%1 %2
%3
Installation: %4

%5</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
</context>
<context>
    <name>ApplicationRequest</name>
    <message>
        <source>Exit code of --non-interactive: %1</source>
        <translation>Exit-Code von --non-interactive: %1</translation>
    </message>
    <message>
        <source>--%1 needs --%2</source>
        <translation>--%1 braucht --%2</translation>
    </message>
    <message>
        <source>no %1 given</source>
        <translation>kein %1 angegeben</translation>
    </message>
    <message>
        <source>the name of a %1 is empty</source>
        <translation>%1: der Name ist leer</translation>
    </message>
</context>
<context>
    <name>ApplicationStart</name>
    <message>
        <source>the output could not be written</source>
        <translation>die Ausgabe konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>there is no display for the window; --non-interactive %1</source>
        <translation>es gibt keine Anzeige für das Fenster; --non-interactive %1</translation>
    </message>
</context>
<context>
    <name>EngineVersion</name>
    <message>
        <source>%1 is not in the search path</source>
        <translation>%1 ist nicht im Suchpfad</translation>
    </message>
    <message>
        <source>unknown version</source>
        <translation>unbekannte Version</translation>
    </message>
</context>
<context>
    <name>ErrorOutput</name>
    <message>
        <source>Try &quot;%1 --help&quot;.</source>
        <translation>Mehr dazu mit „%1 --help“.</translation>
    </message>
</context>
<context>
    <name>HelpBrowser</name>
    <message>
        <source>Help page</source>
        <translation>Hilfeseite</translation>
    </message>
</context>
<context>
    <name>HelpMenu</name>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Help on %1	F1</source>
        <translation>&amp;Hilfe zu %1	F1</translation>
    </message>
    <message>
        <source>&amp;About %1</source>
        <translation>&amp;Über %1</translation>
    </message>
</context>
<context>
    <name>HelpPages</name>
    <message>
        <source># This page is missing

The installation has no help page `%1`. The pages are in this folder:

    %2

[To the contents](index.md)
</source>
        <translation># Diese Seite fehlt

Die Installation hat keine Hilfeseite `%1`. Die Seiten sind in diesem Ordner:

    %2

[Zum Inhalt](index.md)
</translation>
    </message>
</context>
<context>
    <name>HelpViewer</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vor</translation>
    </message>
    <message>
        <source>The help opens nothing outside of itself. The address is %1</source>
        <translation>Die Hilfe öffnet nichts, was nicht zu ihr gehört. Die Adresse ist %1</translation>
    </message>
</context>
<context>
    <name>OpenDialog</name>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Files that are not listed</source>
        <translation>Dateien, die nicht aufgeführt sind</translation>
    </message>
    <message>
        <source>Files in
%1
were not listed, because their names are not UTF-8; rename them to open them:
%2</source>
        <translation>Dateien in
%1
wurden nicht aufgeführt, weil ihre Namen nicht in UTF-8 sind; benennen Sie sie um, um sie zu öffnen:
%2</translation>
    </message>
</context>
<context>
    <name>PictureOptions</name>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>The picture&apos;s size in pixels (default: %1).</source>
        <translation>Die Größe des Bildes in Pixeln (Standard: %1).</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no size: width x height, from %2 to %3 pixels</source>
        <translation>„%1“ ist keine Größe: Breite x Höhe, je %2 bis %3 Pixel</translation>
    </message>
</context>
<context>
    <name>QtOptions</name>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>The X display to use, in place of $DISPLAY.</source>
        <translation>Die X-Anzeige, anstelle der in $DISPLAY.</translation>
    </message>
    <message>
        <source>The plugin for the window system, such as xcb, wayland or offscreen.</source>
        <translation>Das Plugin für das Fenstersystem, etwa xcb, wayland oder offscreen.</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Where such plugins are.</source>
        <translation>Wo solche Plugins liegen.</translation>
    </message>
    <message>
        <source>The theme of the desktop.</source>
        <translation>Das Thema der Arbeitsumgebung.</translation>
    </message>
    <message>
        <source>A generic plugin to load; may be given several times.</source>
        <translation>Ein allgemeines Plugin, das geladen wird; mehrmals möglich.</translation>
    </message>
    <message>
        <source>geometry</source>
        <translation>Geometrie</translation>
    </message>
    <message>
        <source>Place and size of the first window, such as 800x600+50+50.</source>
        <translation>Ort und Größe des ersten Fensters, etwa 800x600+50+50.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>The icon of windows.</source>
        <translation>Das Symbol der Fenster.</translation>
    </message>
    <message>
        <source>text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>The title of the first window.</source>
        <translation>Der Titel des ersten Fensters.</translation>
    </message>
    <message>
        <source>Lay windows out from right to left.</source>
        <translation>Fenster von rechts nach links anordnen.</translation>
    </message>
    <message>
        <source>The style of widgets, such as fusion.</source>
        <translation>Der Stil der Bedienelemente, etwa fusion.</translation>
    </message>
    <message>
        <source>A style sheet for widgets.</source>
        <translation>Ein Stylesheet für Bedienelemente.</translation>
    </message>
</context>
<context>
    <name>RecentMenu</name>
    <message>
        <source>There is no such file any more, or it cannot be read</source>
        <translation>Die Datei gibt es nicht mehr, oder sie ist nicht lesbar</translation>
    </message>
    <message>
        <source>Its folder does not answer; the network may be gone</source>
        <translation>Der Ordner antwortet nicht; vielleicht ist das Netzwerk weg</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>No recent files</source>
        <translation>Keine zuletzt geöffneten Dateien</translation>
    </message>
</context>
<context>
    <name>ScriptRecorder</name>
    <message>
        <source>%1: cannot record to %2: %3</source>
        <translation>%1: in %2 kann nicht aufgezeichnet werden: %3</translation>
    </message>
</context>
<context>
    <name>Session</name>
    <message>
        <source>Message %1</source>
        <translation>Meldung %1</translation>
    </message>
</context>
<context>
    <name>SubcommandGroup</name>
    <message>
        <source>Usage: %1
</source>
        <translation>Aufruf: %1
</translation>
    </message>
    <message>
        <source>no command given</source>
        <translation>kein Befehl angegeben</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation>unbekannter Befehl „%1“</translation>
    </message>
</context>
<context>
    <name>SubcommandOption</name>
    <message>
        <source>seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>word</source>
        <translation>Wort</translation>
    </message>
    <message>
        <source>n</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>host</source>
        <translation>Host</translation>
    </message>
</context>
<context>
    <name>SubcommandWords</name>
    <message>
        <source>unknown option &quot;%1&quot;</source>
        <translation>unbekannte Option „%1“</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 steht zweimal da</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 nimmt keinen Wert</translation>
    </message>
    <message>
        <source>%1 takes a %2</source>
        <translation>%1 braucht einen Wert: %2</translation>
    </message>
    <message>
        <source>%1 takes whole %2 from %3 to %4, and not &quot;%5&quot;</source>
        <translation>%1 nimmt ganze Zahlen (%2) von %3 bis %4 und nicht „%5“</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>unexpected argument &quot;%1&quot;</source>
        <translation>unerwartetes Argument „%1“</translation>
    </message>
</context>
<context>
    <name>SuiteFolders</name>
    <message>
        <source>%1 names a folder with characters that cannot be read; the name must be text in the encoding of this session, such as UTF-8</source>
        <translation>%1 nennt einen Ordner mit Zeichen, die nicht lesbar sind; der Name muss Text in der Kodierung dieser Sitzung sein, etwa UTF-8</translation>
    </message>
</context>
<context>
    <name>Versions</name>
    <message>
        <source>LGPL version 3</source>
        <translation>LGPL Version 3</translation>
    </message>
    <message>
        <source>GPL version 3</source>
        <translation>GPL Version 3</translation>
    </message>
    <message>
        <source>Engine: %1</source>
        <translation>Rechenkern: %1</translation>
    </message>
</context>
</TS>
