<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
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
</TS>
