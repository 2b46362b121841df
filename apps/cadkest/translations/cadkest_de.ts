<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>The picture&apos;s file (default: MODEL.png beside the model).</source>
        <translation>Die Datei des Bildes (Standard: MODELL.png neben dem Modell).</translation>
    </message>
    <message>
        <source>Look from a corner (iso, the default), along an axis (x, y) or from above (z).</source>
        <translation>Blick von einer Ecke (iso, der Standard), entlang einer Achse (x, y) oder von oben (z).</translation>
    </message>
    <message>
        <source>view</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Colours: light (default) or dark.</source>
        <translation>Farben: light (hell, Standard) oder dark (dunkel).</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>more than one model</source>
        <translation>mehr als ein Modell</translation>
    </message>
    <message>
        <source>no model given</source>
        <translation>kein Modell angegeben</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no view: iso, x, y or z</source>
        <translation>„%1“ ist keine Ansicht: iso, x, y oder z</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no palette: light or dark</source>
        <translation>„%1“ ist keine Palette: light oder dark</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name for a picture: it must end in .png</source>
        <translation>„%1“ ist kein Name für ein Bild: er muss auf .png enden</translation>
    </message>
    <message>
        <source>Shows a model&apos;s wires in three dimensions.</source>
        <translation>Zeigt die Drähte eines Modells in drei Dimensionen.</translation>
    </message>
    <message>
        <source>0 the picture was made, 1 it was not,
2 the command line is wrong.</source>
        <translation>0 das Bild ist fertig, 1 es ist missglückt,
2 die Befehlszeile ist falsch.</translation>
    </message>
    <message>
        <source>Make a picture (PNG) of the model, without a window.</source>
        <translation>Ein Bild (PNG) des Modells machen, ohne Fenster.</translation>
    </message>
    <message>
        <source>makes a picture without one</source>
        <translation>macht ein Bild ohne Anzeige</translation>
    </message>
    <message>
        <source>model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>A model file (*.nec).</source>
        <translation>Eine Modelldatei (*.nec).</translation>
    </message>
</context>
<context>
    <name>HardwareDrawing</name>
    <message>
        <source>OpenGL refuses the shaders: %1</source>
        <translation>OpenGL lehnt die Shader ab: %1</translation>
    </message>
    <message>
        <source>OpenGL gives no memory</source>
        <translation>OpenGL gibt keinen Speicher</translation>
    </message>
</context>
<context>
    <name>HardwareOffer</name>
    <message>
        <source>Settings &gt; Rendering</source>
        <translation>Einstellungen &gt; Darstellung</translation>
    </message>
</context>
<context>
    <name>HardwareProbe</name>
    <message>
        <source>OpenGL does not work</source>
        <translation>OpenGL funktioniert nicht</translation>
    </message>
    <message>
        <source>OpenGL crashed when it was tried</source>
        <translation>OpenGL ist beim Versuch abgestürzt</translation>
    </message>
    <message>
        <source>OpenGL gave no answer when it was tried</source>
        <translation>OpenGL hat beim Versuch nicht geantwortet</translation>
    </message>
    <message>
        <source>it could not be tried: %1</source>
        <translation>der Versuch war nicht möglich: %1</translation>
    </message>
</context>
<context>
    <name>HardwareRenderer</name>
    <message>
        <source>this display has no OpenGL</source>
        <translation>diese Anzeige hat kein OpenGL</translation>
    </message>
    <message>
        <source>OpenGL does not start</source>
        <translation>OpenGL startet nicht</translation>
    </message>
    <message>
        <source>the OpenGL of this display is too old</source>
        <translation>das OpenGL dieser Anzeige ist zu alt</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Hardware rendering</source>
        <translation>Hardware-Darstellung</translation>
    </message>
    <message>
        <source>Software rendering</source>
        <translation>Software-Darstellung</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>Save &amp;picture...</source>
        <translation>&amp;Bild speichern …</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>From a &amp;corner	0</source>
        <translation>Von einer E&amp;cke	0</translation>
    </message>
    <message>
        <source>Along &amp;y	1</source>
        <translation>Entlang &amp;y	1</translation>
    </message>
    <message>
        <source>Along &amp;x	3</source>
        <translation>Entlang &amp;x	3</translation>
    </message>
    <message>
        <source>From &amp;above	7</source>
        <translation>Von &amp;oben	7</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Fit	Home</source>
        <translation>&amp;Einpassen	Pos1</translation>
    </message>
    <message>
        <source>&amp;True radii</source>
        <translation>&amp;Wahre Radien</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>%1 has mistakes; what could be read is shown:</source>
        <translation>%1 hat Fehler; gezeigt wird, was lesbar ist:</translation>
    </message>
    <message>
        <source>%1 cannot be shown:</source>
        <translation>%1 kann nicht gezeigt werden:</translation>
    </message>
    <message>
        <source>Hardware rendering is not available: %1. Software rendering is used.</source>
        <translation>Die Hardware-Darstellung ist nicht verfügbar: %1. Verwendet wird die Software-Darstellung.</translation>
    </message>
    <message>
        <source>Open model</source>
        <translation>Modell öffnen</translation>
    </message>
    <message>
        <source>Models (*.nec);;All files (*)</source>
        <translation>Modelle (*.nec);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Bilder (*.png)</translation>
    </message>
    <message>
        <source>%1 is saved</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>The picture is not saved: %1</source>
        <translation>Das Bild ist nicht gespeichert: %1</translation>
    </message>
</context>
<context>
    <name>Overlay</name>
    <message>
        <source>%L1 wire</source>
        <translation>%L1 Draht</translation>
    </message>
    <message>
        <source>%L1 wires</source>
        <translation>%L1 Drähte</translation>
    </message>
    <message>
        <source>%L1 segment</source>
        <translation>%L1 Segment</translation>
    </message>
    <message>
        <source>%L1 segments</source>
        <translation>%L1 Segmente</translation>
    </message>
    <message>
        <source>%L1 card of surface patches is not shown</source>
        <translation>%L1 Karte mit Flächenelementen wird nicht gezeigt</translation>
    </message>
    <message>
        <source>%L1 cards of surface patches are not shown</source>
        <translation>%L1 Karten mit Flächenelementen werden nicht gezeigt</translation>
    </message>
    <message>
        <source>source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>load</source>
        <translation>Last</translation>
    </message>
    <message>
        <source>not complete: there are more segments</source>
        <translation>unvollständig: es gibt weitere Segmente</translation>
    </message>
</context>
<context>
    <name>ProbeCommand</name>
    <message>
        <source>OpenGL draws nothing</source>
        <translation>OpenGL zeichnet nichts</translation>
    </message>
    <message>
        <source>OpenGL draws wrong pictures</source>
        <translation>OpenGL zeichnet falsche Bilder</translation>
    </message>
</context>
<context>
    <name>RenderingDialog</name>
    <message>
        <source>Rendering</source>
        <translation>Darstellung</translation>
    </message>
</context>
<context>
    <name>RenderingSwitch</name>
    <message>
        <source>the program ended when it was last switched on (Settings, Rendering tries it again)</source>
        <translation>das Programm endete, als sie zuletzt eingeschaltet wurde (Einstellungen, Darstellung versucht es noch einmal)</translation>
    </message>
    <message>
        <source>Trying hardware rendering...</source>
        <translation>Hardware-Darstellung wird versucht …</translation>
    </message>
</context>
<context>
    <name>WindowCommand</name>
    <message>
        <source>&amp;Rendering...</source>
        <translation>&amp;Darstellung …</translation>
    </message>
    <message>
        <source>Shows a model&apos;s wires in three dimensions.</source>
        <translation>Zeigt die Drähte eines Modells in drei Dimensionen.</translation>
    </message>
</context>
</TS>
