<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ApplicationMenu</name>
    <message>
        <source>&amp;View model</source>
        <translation>Modell an&amp;sehen</translation>
    </message>
    <message>
        <source>Show the model&apos;s wires in cadkest</source>
        <translation>Die Drähte des Modells in cadkest anzeigen</translation>
    </message>
    <message>
        <source>&amp;Edit model</source>
        <translation>Modell &amp;bearbeiten</translation>
    </message>
    <message>
        <source>Change the model in editkest</source>
        <translation>Das Modell in editkest ändern</translation>
    </message>
    <message>
        <source>Show &amp;results</source>
        <translation>&amp;Ergebnisse anzeigen</translation>
    </message>
    <message>
        <source>Show what the selected run has found in postkest</source>
        <translation>Die Ergebnisse des ausgewählten Laufs in postkest anzeigen</translation>
    </message>
    <message>
        <source>Show results of &amp;all runs</source>
        <translation>Ergebnisse &amp;aller Läufe anzeigen</translation>
    </message>
    <message>
        <source>Show what all runs of this session have found in postkest</source>
        <translation>Die Ergebnisse aller Läufe dieser Sitzung in postkest anzeigen</translation>
    </message>
    <message>
        <source>Solver &amp;console</source>
        <translation>Solver-&amp;Konsole</translation>
    </message>
    <message>
        <source>Open a shell in the model&apos;s folder that knows the solver components</source>
        <translation>Im Ordner des Modells eine Shell öffnen, die die Solver-Komponenten kennt</translation>
    </message>
    <message>
        <source>&amp;Applications</source>
        <translation>&amp;Anwendungen</translation>
    </message>
    <message>
        <source>Show resu&amp;lts</source>
        <translation>Er&amp;gebnisse anzeigen</translation>
    </message>
    <message>
        <source>Opening a console in %1</source>
        <translation>Konsole wird geöffnet in %1</translation>
    </message>
    <message>
        <source>Model not opened</source>
        <translation>Modell nicht geöffnet</translation>
    </message>
    <message>
        <source>No results</source>
        <translation>Keine Ergebnisse</translation>
    </message>
    <message>
        <source>These results are no longer there:
%1</source>
        <translation>Diese Ergebnisse sind nicht mehr vorhanden:
%1</translation>
    </message>
    <message>
        <source>Opening %1 in %2</source>
        <translation>%1 wird in %2 geöffnet</translation>
    </message>
    <message>
        <source>Opening %1 results in %2</source>
        <translation>%1 Ergebnisse werden in %2 geöffnet</translation>
    </message>
</context>
<context>
    <name>BatchReport</name>
    <message>
        <source>wrote %1</source>
        <translation>%1 geschrieben</translation>
    </message>
    <message>
        <source>%1, %2, %3, %4 in %5</source>
        <translation>%1, %2, %3, %4 in %5</translation>
    </message>
    <message>
        <source>&quot;kestdesk runs show %1&quot; shows this run again</source>
        <translation>„kestdesk runs show %1“ zeigt diesen Lauf noch einmal an</translation>
    </message>
    <message>
        <source>[%1] %2% in all, phase %3%, %4  %5</source>
        <translation>[%1] %2% insgesamt, Phase %3%, %4  %5</translation>
    </message>
</context>
<context>
    <name>BatchSession</name>
    <message>
        <source>the record of this run is not complete: %1</source>
        <translation>die Aufzeichnung dieses Laufs ist unvollständig: %1</translation>
    </message>
    <message>
        <source>stopping; once more ends at once</source>
        <translation>wird gestoppt; noch einmal beendet sofort</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>The component to run: %1. Without it, runkest.</source>
        <translation>Die Komponente, die gestartet wird: %1. Ohne diese Option runkest.</translation>
    </message>
    <message>
        <source>%1 For %2.</source>
        <translation>%1 Für %2.</translation>
    </message>
    <message>
        <source>the window has a box for it</source>
        <translation>das Fenster hat ein Kästchen dafür</translation>
    </message>
    <message>
        <source>Run up to N models at the same time.</source>
        <translation>Bis zu N Modelle gleichzeitig rechnen.</translation>
    </message>
    <message>
        <source>the window has a setting for it</source>
        <translation>das Fenster hat eine Einstellung dafür</translation>
    </message>
    <message>
        <source>At the end, the runs as JSON on standard output; all else goes to standard error.</source>
        <translation>Am Ende die Läufe als JSON auf der Standardausgabe; alles andere geht auf die Standardfehlerausgabe.</translation>
    </message>
    <message>
        <source>adaptkest is started by runkest and not by itself; its launch options are set with &quot;kestdesk options&quot;</source>
        <translation>adaptkest wird von runkest gestartet und nicht für sich; seine Startoptionen werden mit „kestdesk options“ gesetzt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name of a component; the components are %2</source>
        <translation>„%1“ ist kein Name einer Komponente; die Komponenten sind %2</translation>
    </message>
    <message>
        <source>--%1 has no meaning for %2, only for %3</source>
        <translation>--%1 hat für %2 keine Bedeutung, nur für %3</translation>
    </message>
    <message>
        <source>did you mean &quot;kestdesk %1&quot;?</source>
        <translation>meinten Sie „kestdesk %1“?</translation>
    </message>
    <message>
        <source>there is no model %1</source>
        <translation>das Modell %1 gibt es nicht</translation>
    </message>
    <message>
        <source>--jobs takes a number from 1 to %1, and not &quot;%2&quot;</source>
        <translation>--jobs nimmt eine Zahl von 1 bis %1 an und nicht „%2“</translation>
    </message>
    <message>
        <source>Opens a window that runs the suite&apos;s solver components on models. With --non-interactive runs a component on each model in this terminal, with the user&apos;s launch options, and shows what it prints.</source>
        <translation>Öffnet ein Fenster, das die Solver-Komponenten der Suite auf Modelle anwendet. Mit --non-interactive wird eine Komponente in diesem Terminal auf jedes Modell angewendet, mit den Startoptionen des Benutzers, und ihre Ausgabe angezeigt.</translation>
    </message>
    <message>
        <source>0 all models valid, 1 fault, 2 could not start, 130 stopped.</source>
        <translation>0 alle Modelle gültig, 1 Fehler, 2 nicht gestartet, 130 gestoppt.</translation>
    </message>
    <message>
        <source>
Ctrl+C stops the component, a second one ends at once.

Environment:
  KEST_HOME       the installation with the components; without it, the one beside kestdesk
  KEST_USER_HOME  where the user&apos;s kest.ini and machines.kest are; without it, the folder kest
                  among the user&apos;s settings
  KEST_SSH        the program to reach hosts with; without it, ssh
  KEST_SCRIPT     a file to record commands in
  NO_COLOR        set to anything: no colours</source>
        <translation>
Strg+C stoppt die Komponente, ein zweites beendet sofort.

Umgebung:
  KEST_HOME       die Installation mit den Komponenten; ohne sie die neben kestdesk
  KEST_USER_HOME  wo kest.ini und machines.kest des Benutzers liegen; ohne sie der Ordner kest
                  bei den Einstellungen des Benutzers
  KEST_SSH        das Programm, mit dem Hosts erreicht werden; ohne sie ssh
  KEST_SCRIPT     eine Datei, in der Befehle aufgezeichnet werden
  NO_COLOR        irgendein Wert: keine Farben</translation>
    </message>
    <message>
        <source>Run in this terminal, without a window.</source>
        <translation>In diesem Terminal laufen, ohne Fenster.</translation>
    </message>
    <message>
        <source>runs models in this terminal</source>
        <translation>rechnet Modelle in diesem Terminal</translation>
    </message>
    <message>
        <source>Model files (*.nec).</source>
        <translation>Modelldateien (*.nec).</translation>
    </message>
</context>
<context>
    <name>CommandPage</name>
    <message>
        <source>%1 = %2   (default: %3)</source>
        <translation>%1 = %2   (Standard: %3)</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Copy co&amp;mmand</source>
        <translation>Befehl &amp;kopieren</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Run options</source>
        <translation>Laufoptionen</translation>
    </message>
    <message>
        <source>Environment, in addition to the system&apos;s</source>
        <translation>Umgebung, zusätzlich zu der des Systems</translation>
    </message>
    <message>
        <source>Launch options that differ from the defaults</source>
        <translation>Startoptionen, die vom Standard abweichen</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>All launch options</source>
        <translation>Alle Startoptionen</translation>
    </message>
</context>
<context>
    <name>ComparisonReport</name>
    <message>
        <source>model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>machines file</source>
        <translation>Rechnerdatei</translation>
    </message>
    <message>
        <source>The %1 was not compared: %2</source>
        <translation>%1 nicht verglichen: %2</translation>
    </message>
    <message>
        <source>The %1 differs in the ends of lines only</source>
        <translation>%1: nur die Zeilenenden sind verschieden</translation>
    </message>
    <message>
        <source>The %1, line %2 and line %3</source>
        <translation>%1, Zeile %2 und Zeile %3</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source> (%1 times more)</source>
        <translation> (%1-mal öfter)</translation>
    </message>
    <message>
        <source>impedances differ by up to %1 % (at %2 MHz)</source>
        <translation>Impedanzen weichen um bis zu %1 % ab (bei %2 MHz)</translation>
    </message>
    <message>
        <source>%1 known in one only</source>
        <translation>%1 nur in einer bekannt</translation>
    </message>
    <message>
        <source>frequencies: %1 in both, %2 and %3 in one only</source>
        <translation>Frequenzen: %1 in beiden, %2 und %3 nur in einer</translation>
    </message>
    <message>
        <source>the impedances are the same</source>
        <translation>die Impedanzen sind gleich</translation>
    </message>
    <message>
        <source>File %1: %2</source>
        <translation>Datei %1: %2</translation>
    </message>
    <message>
        <source>  not compared by frequency: %1</source>
        <translation>  nicht nach Frequenz verglichen: %1</translation>
    </message>
    <message>
        <source>- run %1, %2</source>
        <translation>- Lauf %1, %2</translation>
    </message>
    <message>
        <source>+ run %1, %2</source>
        <translation>+ Lauf %1, %2</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Lauf</translation>
    </message>
    <message>
        <source>Launch options</source>
        <translation>Startoptionen</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>The runs are the same.</source>
        <translation>Die Läufe sind gleich.</translation>
    </message>
</context>
<context>
    <name>DifferencesPage</name>
    <message>
        <source>%1 times</source>
        <translation>%1-mal</translation>
    </message>
    <message>
        <source>Not compared: %1</source>
        <translation>Nicht verglichen: %1</translation>
    </message>
    <message>
        <source>Only the ends of lines differ.</source>
        <translation>Nur die Zeilenenden sind verschieden.</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>Run %1: %2, %3</source>
        <translation>Lauf %1: %2, %3</translation>
    </message>
    <message>
        <source>Run to compare with</source>
        <translation>Lauf, mit dem verglichen wird</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Unterschiede</translation>
    </message>
    <message>
        <source>Differences &amp;from:</source>
        <translation>Unterschiede &amp;zu:</translation>
    </message>
    <message>
        <source>Reading...</source>
        <translation>Wird gelesen...</translation>
    </message>
    <message>
        <source>There is no other run of this model.</source>
        <translation>Es gibt keinen anderen Lauf dieses Modells.</translation>
    </message>
    <message>
        <source>Comparing...</source>
        <translation>Wird verglichen...</translation>
    </message>
    <message>
        <source>run %1</source>
        <translation>Lauf %1</translation>
    </message>
    <message>
        <source>Took</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>There is no difference but the times.</source>
        <translation>Außer den Zeiten gibt es keinen Unterschied.</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Lauf</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Launch options</source>
        <translation>Startoptionen</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>Computer and versions</source>
        <translation>Rechner und Versionen</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Machines file</source>
        <translation>Rechnerdatei</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
</context>
<context>
    <name>EnvironmentRule</name>
    <message>
        <source>Line %1 is not NAME=VALUE.</source>
        <translation>Zeile %1 ist nicht NAME=WERT.</translation>
    </message>
    <message>
        <source>Line %1 has more than one &quot;=&quot;, and such a variable is not set.</source>
        <translation>Zeile %1 hat mehr als ein „=“, und eine solche Variable wird nicht gesetzt.</translation>
    </message>
    <message>
        <source>Line %1 has blanks around its value or several in a row, which are not kept.</source>
        <translation>Zeile %1 hat Leerzeichen um den Wert oder mehrere hintereinander, die nicht erhalten bleiben.</translation>
    </message>
    <message>
        <source>Line %1 sets %2 a second time.</source>
        <translation>Zeile %1 setzt %2 ein zweites Mal.</translation>
    </message>
</context>
<context>
    <name>HostCheck</name>
    <message>
        <source>the name does not resolve: %1</source>
        <translation>der Name lässt sich nicht auflösen: %1</translation>
    </message>
    <message>
        <source>answers without end</source>
        <translation>antwortet ohne Ende</translation>
    </message>
    <message>
        <source>cannot start %1: %2</source>
        <translation>%1 kann nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>%1 crashed</source>
        <translation>%1 ist abgestürzt</translation>
    </message>
    <message>
        <source>%1 ended with exit code %2</source>
        <translation>%1 endete mit dem Exit-Code %2</translation>
    </message>
    <message>
        <source>the name does not resolve within %1</source>
        <translation>der Name lässt sich nicht innerhalb von %1 auflösen</translation>
    </message>
    <message>
        <source>no answer within %1</source>
        <translation>keine Antwort innerhalb von %1</translation>
    </message>
    <message>
        <source>answers &quot;%1&quot; in place of the number of its cores</source>
        <translation>antwortet „%1“ statt der Anzahl seiner Kerne</translation>
    </message>
    <message>
        <source>%1 for %2</source>
        <translation>%1 für %2</translation>
    </message>
</context>
<context>
    <name>KestdeskSettings</name>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Show a &amp;notification when a run ends</source>
        <translation>&amp;Benachrichtigung anzeigen, wenn ein Lauf endet</translation>
    </message>
    <message>
        <source>Only while another window has the attention</source>
        <translation>Nur solange ein anderes Fenster aktiv ist</translation>
    </message>
    <message>
        <source>Start with the last &amp;model</source>
        <translation>Mit dem letzten &amp;Modell starten</translation>
    </message>
    <message>
        <source>Without it, the window starts without a model</source>
        <translation>Ohne diese Einstellung startet das Fenster ohne Modell</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Läufe</translation>
    </message>
    <message>
        <source>&amp;Ask before a run is stopped</source>
        <translation>&amp;Nachfragen, bevor ein Lauf gestoppt wird</translation>
    </message>
    <message>
        <source>Closing the window during runs always asks</source>
        <translation>Beim Schließen des Fensters während eines Laufs wird immer gefragt</translation>
    </message>
    <message>
        <source>Once it has taken at &amp;least:</source>
        <translation>Wenn er mindestens ge&amp;dauert hat:</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>A run that has just started is stopped without a question</source>
        <translation>Ein gerade erst gestarteter Lauf wird ohne Nachfrage gestoppt</translation>
    </message>
    <message>
        <source>&amp;Runs at the same time:</source>
        <translation>&amp;Gleichzeitige Läufe:</translation>
    </message>
    <message>
        <source>How many runs of the queue go at the same time; each may use several processors</source>
        <translation>Wie viele Läufe der Warteschlange gleichzeitig laufen; jeder kann mehrere Prozessoren nutzen</translation>
    </message>
    <message>
        <source>Past runs</source>
        <translation>Frühere Läufe</translation>
    </message>
    <message>
        <source>&amp;Keep the record of a run for:</source>
        <translation>Aufzeichnungen &amp;aufbewahren für:</translation>
    </message>
    <message>
        <source>days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>Older records are deleted; models and results are not</source>
        <translation>Ältere Aufzeichnungen werden gelöscht; Modelle und Ergebnisse nicht</translation>
    </message>
    <message>
        <source>Use at most:</source>
        <translation>Höchstens belegen:</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>Beyond that the oldest records are deleted; models and results are not</source>
        <translation>Darüber hinaus werden die ältesten Aufzeichnungen gelöscht; Modelle und Ergebnisse nicht</translation>
    </message>
</context>
<context>
    <name>LaunchOptionTable</name>
    <message>
        <source>Kest Solver</source>
        <translation>Kest Solver</translation>
    </message>
    <message>
        <source>Pre-processor</source>
        <translation>Präprozessor</translation>
    </message>
    <message>
        <source>Utilities</source>
        <translation>Hilfsprogramme</translation>
    </message>
    <message>
        <source>AMR</source>
        <translation>AMR</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>Passed on to the component, split at blanks. Quotes have no meaning.</source>
        <translation>Wird an die Komponente weitergegeben, an Leerzeichen getrennt. Anführungszeichen haben keine Bedeutung.</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Lauf</translation>
    </message>
    <message>
        <source>&amp;parallel</source>
        <translation>&amp;Parallelen Kest Solver starten</translation>
    </message>
    <message>
        <source>Run on several processors or machines at once, as the machines file says.</source>
        <translation>Gleichzeitig auf mehreren Prozessoren oder Rechnern rechnen, wie es in der Rechnerdatei steht.</translation>
    </message>
    <message>
        <source>&amp;remote</source>
        <translation>Kest Solver auf einem &amp;entfernten Rechner starten</translation>
    </message>
    <message>
        <source>Run on the remote host that is named below.</source>
        <translation>Auf dem entfernten Host rechnen, der unten genannt ist.</translation>
    </message>
    <message>
        <source>d&amp;ialog</source>
        <translation>Einzelheiten &amp;im Lauffenster des Kest Solvers zeigen</translation>
    </message>
    <message>
        <source>The window of a run opens with its output and messages unfolded.</source>
        <translation>Das Fenster eines Laufs öffnet sich mit aufgeklappter Ausgabe und aufgeklappten Meldungen.</translation>
    </message>
    <message>
        <source>Solver</source>
        <translation>Solver</translation>
    </message>
    <message>
        <source>priorit&amp;y</source>
        <translation>Pro&amp;zesspriorität</translation>
    </message>
    <message>
        <source>How the solver shares the processor with other programs.</source>
        <translation>Wie sich der Solver den Prozessor mit anderen Programmen teilt.</translation>
    </message>
    <message>
        <source>Check the &amp;geometry only</source>
        <translation>Nur die &amp;Geometrie prüfen</translation>
    </message>
    <message>
        <source>The solver looks at the model and ends without solving it.</source>
        <translation>Der Solver sieht das Modell durch und endet, ohne es zu lösen.</translation>
    </message>
    <message>
        <source>Export &amp;SPICE MTL circuit files</source>
        <translation>&amp;SPICE-MTL-Schaltungsdateien exportieren</translation>
    </message>
    <message>
        <source>The solver writes circuit files of multiconductor transmission lines.</source>
        <translation>Der Solver schreibt Schaltungsdateien von Mehrleiter-Übertragungsleitungen.</translation>
    </message>
    <message>
        <source>Ad&amp;vanced options</source>
        <translation>Er&amp;weiterte Optionen</translation>
    </message>
    <message>
        <source>Advanced options of the solver</source>
        <translation>Erweiterte Optionen des Solvers</translation>
    </message>
    <message>
        <source>Parallel runs</source>
        <translation>Parallele Läufe</translation>
    </message>
    <message>
        <source>Specify the &amp;number of processes</source>
        <translation>&amp;Anzahl der Prozesse vorgeben</translation>
    </message>
    <message>
        <source>Specify the number of parallel processes</source>
        <translation>Anzahl der parallelen Prozesse vorgeben</translation>
    </message>
    <message>
        <source>Without it, all the processes of the machines file are used.</source>
        <translation>Ohne diese Option werden alle Prozesse der Rechnerdatei genutzt.</translation>
    </message>
    <message>
        <source>Number &amp;of processes</source>
        <translation>Anzahl der Pr&amp;ozesse</translation>
    </message>
    <message>
        <source>processes</source>
        <translation>Prozesse</translation>
    </message>
    <message>
        <source>Number of parallel processes</source>
        <translation>Anzahl der parallelen Prozesse</translation>
    </message>
    <message>
        <source>How many of the processes of the machines file are used: 1 to 4096.</source>
        <translation>Wie viele der Prozesse der Rechnerdatei genutzt werden: 1 bis 4096.</translation>
    </message>
    <message>
        <source>&amp;Use shared memory</source>
        <translation>Gemeinsamen Speicher n&amp;utzen</translation>
    </message>
    <message>
        <source>Processes on one machine share their memory.</source>
        <translation>Prozesse auf einem Rechner nutzen ihren Speicher gemeinsam.</translation>
    </message>
    <message>
        <source>&amp;MPI statistics</source>
        <translation>&amp;MPI-Statistik</translation>
    </message>
    <message>
        <source>level</source>
        <translation>Stufe</translation>
    </message>
    <message>
        <source>Level of MPI statistics</source>
        <translation>Stufe der MPI-Statistik</translation>
    </message>
    <message>
        <source>Told to the solver in the environment variable KEST_MPISTATISTICS; 0 is none.</source>
        <translation>Erhält der Solver in der Umgebungsvariablen KEST_MPISTATISTICS; 0 ist keine.</translation>
    </message>
    <message>
        <source>Au&amp;thentication method</source>
        <translation>Au&amp;thentifizierung</translation>
    </message>
    <message>
        <source>How the machines of a parallel run know that it is you.</source>
        <translation>Woran die Rechner eines parallelen Laufs erkennen, dass Sie es sind.</translation>
    </message>
    <message>
        <source>Remote runs</source>
        <translation>Entfernte Läufe</translation>
    </message>
    <message>
        <source>Remote &amp;host</source>
        <translation>Entfernter &amp;Host</translation>
    </message>
    <message>
        <source>The name or address of the machine, such as node1 or me@node1 port=2222.</source>
        <translation>Name oder Adresse des Rechners, etwa node1 oder ich@node1 port=2222.</translation>
    </message>
    <message>
        <source>&amp;Execution method</source>
        <translation>Aus&amp;führung</translation>
    </message>
    <message>
        <source>Remote execution method</source>
        <translation>Ausführung auf dem entfernten Rechner</translation>
    </message>
    <message>
        <source>How the solver is started on the remote machine.</source>
        <translation>Wie der Solver auf dem entfernten Rechner gestartet wird.</translation>
    </message>
    <message>
        <source>Graphics processors</source>
        <translation>Grafikprozessoren</translation>
    </message>
    <message>
        <source>Use NVIDIA graphi&amp;cs processors (GPUs)</source>
        <translation>Grafikp&amp;rozessoren (GPUs) von NVIDIA nutzen</translation>
    </message>
    <message>
        <source>Use NVIDIA graphics processors</source>
        <translation>Grafikprozessoren von NVIDIA nutzen</translation>
    </message>
    <message>
        <source>The solver computes on graphics processors where it can.</source>
        <translation>Der Solver rechnet auf Grafikprozessoren, wo er es kann.</translation>
    </message>
    <message>
        <source>Num&amp;ber of GPUs</source>
        <translation>Anzah&amp;l der GPUs</translation>
    </message>
    <message>
        <source>GPUs</source>
        <translation>GPUs</translation>
    </message>
    <message>
        <source>Number of graphics processors</source>
        <translation>Anzahl der Grafikprozessoren</translation>
    </message>
    <message>
        <source>A number such as 2; empty for all.</source>
        <translation>Eine Zahl wie 2; leer für alle.</translation>
    </message>
    <message>
        <source>&amp;List of GPUs</source>
        <translation>&amp;Verwendete GPUs</translation>
    </message>
    <message>
        <source>List of graphics processors</source>
        <translation>Liste der verwendeten Grafikprozessoren</translation>
    </message>
    <message>
        <source>Numbers with commas between them, such as 0,1; empty for any.</source>
        <translation>Nummern mit Kommas dazwischen, etwa 0,1; leer für beliebige.</translation>
    </message>
    <message>
        <source>S&amp;kip the GPU option while GPUs are off</source>
        <translation>&amp;Keine GPU-Option, solange GPUs aus sind</translation>
    </message>
    <message>
        <source>Skip the option of graphics processors while they are off</source>
        <translation>Keine Option für Grafikprozessoren, solange sie aus sind</translation>
    </message>
    <message>
        <source>While GPUs are off the solver is told &quot;--use-gpu 0&quot;; with this it is told nothing.</source>
        <translation>Solange GPUs aus sind, erhält der Solver „--use-gpu 0“; mit dieser Option erhält er nichts.</translation>
    </message>
    <message>
        <source>Checks</source>
        <translation>Prüfungen</translation>
    </message>
    <message>
        <source>&amp;Continue with errors</source>
        <translation>Bei &amp;Fehlern fortfahren</translation>
    </message>
    <message>
        <source>Errors in the model do not end the pre-processor.</source>
        <translation>Fehler im Modell beenden den Präprozessor nicht.</translation>
    </message>
    <message>
        <source>Variables</source>
        <translation>Variablen</translation>
    </message>
    <message>
        <source>&amp;Print variables</source>
        <translation>&amp;Variablen ausgeben</translation>
    </message>
    <message>
        <source>The model&apos;s variables are shown among the output of a run.</source>
        <translation>Die Variablen des Modells erscheinen in der Ausgabe eines Laufs.</translation>
    </message>
    <message>
        <source>Print variables to the &amp;output file</source>
        <translation>Variablen in die Aus&amp;gabedatei schreiben</translation>
    </message>
    <message>
        <source>The model&apos;s variables are written to the output file.</source>
        <translation>Die Variablen des Modells werden in die Ausgabedatei geschrieben.</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Erweitert</translation>
    </message>
    <message>
        <source>Advanced options of the pre-processor</source>
        <translation>Erweiterte Optionen des Präprozessors</translation>
    </message>
    <message>
        <source>ADAPTKEST</source>
        <translation>ADAPTKEST</translation>
    </message>
    <message>
        <source>&amp;Restart from an analysis</source>
        <translation>Ab einer Analyse neu &amp;starten</translation>
    </message>
    <message>
        <source>Restart ADAPTKEST from an analysis</source>
        <translation>ADAPTKEST ab einer Analyse neu starten</translation>
    </message>
    <message>
        <source>Go on with a sampling that was interrupted.</source>
        <translation>Eine unterbrochene Abtastung fortsetzen.</translation>
    </message>
    <message>
        <source>Analysis &amp;number</source>
        <translation>N&amp;ummer der Analyse</translation>
    </message>
    <message>
        <source>Number of the analysis to restart from</source>
        <translation>Nummer der Analyse, ab der neu gestartet wird</translation>
    </message>
    <message>
        <source>The first analysis to be done again: 1 or more.</source>
        <translation>Die erste Analyse, die wiederholt wird: 1 oder mehr.</translation>
    </message>
    <message>
        <source>Delete &amp;temporary files</source>
        <translation>&amp;Temporäre Dateien löschen</translation>
    </message>
    <message>
        <source>Delete temporary files of ADAPTKEST</source>
        <translation>Temporäre Dateien von ADAPTKEST löschen</translation>
    </message>
    <message>
        <source>Files of single analyses are removed at the end.</source>
        <translation>Dateien einzelner Analysen werden am Ende entfernt.</translation>
    </message>
    <message>
        <source>OPTKEST</source>
        <translation>OPTKEST</translation>
    </message>
    <message>
        <source>&amp;farming</source>
        <translation>Kest Solver &amp;verteilt starten</translation>
    </message>
    <message>
        <source>OPTKEST runs several solvers at once, on the machines of the machines file.</source>
        <translation>OPTKEST startet mehrere Solver gleichzeitig auf den Rechnern der Rechnerdatei.</translation>
    </message>
    <message>
        <source>Specify the number of farm processes</source>
        <translation>Anzahl der verteilten Prozesse vorgeben</translation>
    </message>
    <message>
        <source>Always on: OPTKEST needs the number.</source>
        <translation>Immer an: OPTKEST braucht die Anzahl.</translation>
    </message>
    <message>
        <source>Number of farm &amp;processes</source>
        <translation>Anzahl der verteilten &amp;Prozesse</translation>
    </message>
    <message>
        <source>How many solvers run at once when they are farmed out: 2 to 4096.</source>
        <translation>Wie viele Solver gleichzeitig laufen, wenn sie verteilt werden: 2 bis 4096.</translation>
    </message>
    <message>
        <source>R&amp;estart from a solver run</source>
        <translation>Ab &amp;einem Solverlauf neu starten</translation>
    </message>
    <message>
        <source>Restart OPTKEST from a solver run</source>
        <translation>OPTKEST ab einem Solverlauf neu starten</translation>
    </message>
    <message>
        <source>Go on with an optimisation that was interrupted.</source>
        <translation>Eine unterbrochene Optimierung fortsetzen.</translation>
    </message>
    <message>
        <source>Solver r&amp;un</source>
        <translation>Solver&amp;lauf</translation>
    </message>
    <message>
        <source>Number of the solver run to restart from</source>
        <translation>Nummer des Solverlaufs, ab dem neu gestartet wird</translation>
    </message>
    <message>
        <source>The first solver run to be done again: 1 or more.</source>
        <translation>Der erste Solverlauf, der wiederholt wird: 1 oder mehr.</translation>
    </message>
    <message>
        <source>De&amp;lete all files</source>
        <translation>&amp;Alle Dateien löschen</translation>
    </message>
    <message>
        <source>Delete all files of OPTKEST</source>
        <translation>Alle Dateien von OPTKEST löschen</translation>
    </message>
    <message>
        <source>Files of single solver runs are removed, except for the best.</source>
        <translation>Dateien einzelner Solverläufe werden entfernt, außer denen des besten.</translation>
    </message>
    <message>
        <source>TIMEKEST</source>
        <translation>TIMEKEST</translation>
    </message>
    <message>
        <source>Delete temporary files</source>
        <translation>Temporäre Dateien löschen</translation>
    </message>
    <message>
        <source>Delete temporary files of TIMEKEST</source>
        <translation>Temporäre Dateien von TIMEKEST löschen</translation>
    </message>
    <message>
        <source>Not in use: no component of this suite reads it, and it is not kept.</source>
        <translation>Nicht in Gebrauch: Keine Komponente dieser Suite liest sie, und sie wird nicht gespeichert.</translation>
    </message>
    <message>
        <source>Refinement</source>
        <translation>Verfeinerung</translation>
    </message>
    <message>
        <source>&amp;Error threshold</source>
        <translation>&amp;Fehlerschwelle</translation>
    </message>
    <message>
        <source>How fine the model becomes.</source>
        <translation>Wie fein das Modell wird.</translation>
    </message>
    <message>
        <source>&amp;Limit the number of iterations</source>
        <translation>Anzahl der &amp;Iterationen begrenzen</translation>
    </message>
    <message>
        <source>Without it, AMRKEST refines until the error is small enough.</source>
        <translation>Ohne diese Option verfeinert AMRKEST, bis der Fehler klein genug ist.</translation>
    </message>
    <message>
        <source>Maximum &amp;iterations</source>
        <translation>&amp;Höchstzahl der Iterationen</translation>
    </message>
    <message>
        <source>iterations</source>
        <translation>Iterationen</translation>
    </message>
    <message>
        <source>Maximum number of iterations</source>
        <translation>Höchstzahl der Iterationen</translation>
    </message>
    <message>
        <source>AMRKEST ends after so many: 1 or more.</source>
        <translation>AMRKEST endet nach so vielen: 1 oder mehr.</translation>
    </message>
    <message>
        <source>&amp;Specify the frequency</source>
        <translation>Frequenz &amp;vorgeben</translation>
    </message>
    <message>
        <source>Without it, AMRKEST chooses one of the model&apos;s frequencies.</source>
        <translation>Ohne diese Option wählt AMRKEST eine der Frequenzen des Modells.</translation>
    </message>
    <message>
        <source>&amp;Frequency</source>
        <translation>Fre&amp;quenz</translation>
    </message>
    <message>
        <source>MHz</source>
        <translation>MHz</translation>
    </message>
    <message>
        <source>Frequency in megahertz</source>
        <translation>Frequenz in Megahertz</translation>
    </message>
    <message>
        <source>The frequency that the model is refined for, such as 14.2 or 1e3.</source>
        <translation>Die Frequenz, für die das Modell verfeinert wird, etwa 14.2 oder 1e3.</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Delete temporary files of AMRKEST</source>
        <translation>Temporäre Dateien von AMRKEST löschen</translation>
    </message>
    <message>
        <source>Files of single iterations are removed at the end.</source>
        <translation>Dateien einzelner Iterationen werden am Ende entfernt.</translation>
    </message>
    <message>
        <source>S&amp;kip the final solve</source>
        <translation>Abschließende &amp;Lösung auslassen</translation>
    </message>
    <message>
        <source>The refined model is written and not solved.</source>
        <translation>Das verfeinerte Modell wird geschrieben und nicht gelöst.</translation>
    </message>
    <message>
        <source>Advanced options of AMRKEST</source>
        <translation>Erweiterte Optionen von AMRKEST</translation>
    </message>
    <message>
        <source>Environment &amp;variables</source>
        <translation>Umgebungs&amp;variablen</translation>
    </message>
    <message>
        <source>Set for the solver&apos;s process: NAME=VALUE, one a line, without a further &quot;=&quot;.</source>
        <translation>Für den Prozess des Solvers gesetzt: NAME=WERT, eine je Zeile, ohne ein weiteres „=“.</translation>
    </message>
</context>
<context>
    <name>LaunchOptionsDialog</name>
    <message>
        <source>Component launch options</source>
        <translation>Startoptionen der Komponenten</translation>
    </message>
    <message>
        <source>The launch options are being changed by %1.

Do you want to look at them without changing them?</source>
        <translation>Die Startoptionen werden gerade von %1 geändert.

Möchten Sie sie ansehen, ohne sie zu ändern?</translation>
    </message>
    <message>
        <source>&amp;Look at them</source>
        <translation>&amp;Ansehen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The launch options cannot be read.

%1.</source>
        <translation>Die Startoptionen können nicht gelesen werden.

%1.</translation>
    </message>
    <message>
        <source>Do you want to replace all launch options by the installation&apos;s defaults?

Nothing is saved before OK or Apply.</source>
        <translation>Möchten Sie alle Startoptionen durch die Standardwerte der Installation ersetzen?

Gespeichert wird erst mit „OK“ oder „Übernehmen“.</translation>
    </message>
    <message>
        <source>Restore &amp;defaults</source>
        <translation>Standar&amp;dwerte</translation>
    </message>
    <message>
        <source>Comes to</source>
        <translation>Ergibt</translation>
    </message>
    <message>
        <source>Groups of launch options</source>
        <translation>Gruppen von Startoptionen</translation>
    </message>
    <message>
        <source>What the options of this tab come to</source>
        <translation>Was die Optionen dieser Seite ergeben</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>Über&amp;nehmen</translation>
    </message>
    <message>
        <source>Read-only: the options are being changed by %1. They are shown as they were last saved.</source>
        <translation>Schreibgeschützt: Die Optionen werden gerade von %1 geändert. Sie werden so angezeigt, wie sie zuletzt gespeichert wurden.</translation>
    </message>
    <message>
        <source>The options could not be saved in %1.</source>
        <translation>Die Optionen konnten nicht in %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>The options could not be saved in %1: %2.</source>
        <translation>Die Optionen konnten nicht in %1 gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>

They are still in the dialog. Please see that there is room on the disk and that you may write there, and try again.</source>
        <translation>

Sie stehen noch im Dialog. Bitte sorgen Sie dafür, dass auf dem Datenträger Platz ist und Sie dort schreiben dürfen, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Not saved:
%1</source>
        <translation>Nicht gespeichert:
%1</translation>
    </message>
</context>
<context>
    <name>LaunchOptionsPage</name>
    <message>
        <source>Machines file</source>
        <translation>Rechnerdatei</translation>
    </message>
    <message>
        <source>Configure</source>
        <translation>Konfigurieren</translation>
    </message>
    <message>
        <source>Configure the machines file</source>
        <translation>Rechnerdatei konfigurieren</translation>
    </message>
    <message>
        <source>The machines of parallel runs, and their processes.</source>
        <translation>Die Rechner paralleler Läufe und ihre Prozesse.</translation>
    </message>
</context>
<context>
    <name>LeaveOutQuestion</name>
    <message>
        <source>Run again without a host</source>
        <translation>Ohne einen Host wiederholen</translation>
    </message>
    <message>
        <source>Run %1 is run again exactly, but without the host %2: in the copy of its machines file that the run gets, this is a comment.

# %3

Your machines file stays as it is.</source>
        <translation>Lauf %1 wird genau so wiederholt, aber ohne den Host %2: In der Kopie seiner Rechnerdatei, die der Lauf erhält, ist dies ein Kommentar.

# %3

Ihre Rechnerdatei bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>&amp;Run again</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Edit the &amp;machines file...</source>
        <translation>&amp;Rechnerdatei bearbeiten...</translation>
    </message>
</context>
<context>
    <name>ListedRun</name>
    <message>
        <source>not started</source>
        <translation>nicht gestartet</translation>
    </message>
    <message>
        <source>It %1.</source>
        <translation>Die Komponente %1.</translation>
    </message>
    <message>
        <source>%1 on %2</source>
        <translation>%1 auf %2</translation>
    </message>
</context>
<context>
    <name>LocalMachines</name>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is not a text file and is left as it is</source>
        <translation>%1 ist keine Textdatei und bleibt, wie sie ist</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile and is left as it is</source>
        <translation>%1 wurde inzwischen geändert und bleibt, wie sie ist</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>MachinesCheck</name>
    <message>
        <source>fine</source>
        <translation>in Ordnung</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>There is no program %1 to reach the hosts with (KEST_SSH names it).</source>
        <translation>Es gibt kein Programm %1, um die Hosts zu erreichen (KEST_SSH nennt es).</translation>
    </message>
</context>
<context>
    <name>MachinesCommand</name>
    <message>
        <source>Saved %1 with the line &quot;%2&quot;.</source>
        <translation>%1 mit der Zeile „%2“ gespeichert.</translation>
    </message>
    <message>
        <source>%1 has lines that are wrong</source>
        <translation>%1 hat falsche Zeilen</translation>
    </message>
    <message>
        <source>%1 names hosts already: %2</source>
        <translation>%1 nennt bereits Hosts: %2</translation>
    </message>
    <message>
        <source>%1; &quot;kestdesk machines use-local --replace&quot; saves %2 with the line &quot;%3&quot; and keeps the others as comments</source>
        <translation>%1; „kestdesk machines use-local --replace“ speichert %2 mit der Zeile „%3“ und behält die anderen als Kommentare</translation>
    </message>
    <message>
        <source>Nothing was changed: %1 has the line &quot;%2&quot; and no other host.</source>
        <translation>Nichts wurde geändert: %1 hat die Zeile „%2“ und keinen anderen Host.</translation>
    </message>
    <message>
        <source>  Exit code: 0 all fine, 1 something is wrong, 2 it could not be done, 130 stopped.
</source>
        <translation>  Exit-Code: 0 alles in Ordnung, 1 etwas ist falsch, 2 nicht ausführbar, 130 gestoppt.
</translation>
    </message>
</context>
<context>
    <name>MachinesDialog</name>
    <message>
        <source>Machines file</source>
        <translation>Rechnerdatei</translation>
    </message>
    <message>
        <source>Go on editing</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Machines, one a line: a host, &quot;:&quot; and how many processes it takes</source>
        <translation>&amp;Rechner, einer je Zeile: ein Host, „:“ und wie viele Prozesse er aufnimmt</translation>
    </message>
    <message>
        <source>&amp;Findings</source>
        <translation>&amp;Befunde</translation>
    </message>
    <message>
        <source>Machines, one a line</source>
        <translation>Rechner, einer je Zeile</translation>
    </message>
    <message>
        <source>What is wrong with the machines file</source>
        <translation>Was an der Rechnerdatei falsch ist</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The file is %1.</source>
        <translation>Die Datei ist %1.</translation>
    </message>
    <message>
        <source>It cannot be read: %1.</source>
        <translation>Sie kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>You have none yet; this is a beginning.</source>
        <translation>Sie haben noch keine; dies ist ein Anfang.</translation>
    </message>
    <message>
        <source>You have none yet; this is a copy of %1.</source>
        <translation>Sie haben noch keine; dies ist eine Kopie von %1.</translation>
    </message>
    <message>
        <source>It is no plain text: saving it loses what cannot be shown here.</source>
        <translation>Sie ist kein reiner Text: Beim Speichern geht verloren, was hier nicht angezeigt werden kann.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>%1 was changed by somebody else meanwhile.</source>
        <translation>%1 wurde inzwischen von jemand anderem geändert.</translation>
    </message>
    <message>
        <source>&amp;Overwrite it</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>&amp;Load it and lose what I typed</source>
        <translation>&amp;Laden und meine Eingaben verwerfen</translation>
    </message>
    <message>
        <source>The machines file has errors. Parallel runs with it may fail.</source>
        <translation>Die Rechnerdatei hat Fehler. Parallele Läufe mit ihr können scheitern.</translation>
    </message>
    <message>
        <source>&amp;Save it anyway</source>
        <translation>Trotzdem &amp;speichern</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2

What you typed is still in the dialog.</source>
        <translation>%1 konnte nicht gespeichert werden: %2

Ihre Eingaben stehen noch im Dialog.</translation>
    </message>
    <message>
        <source>The machines file was changed.</source>
        <translation>Die Rechnerdatei wurde geändert.</translation>
    </message>
    <message>
        <source>&amp;Throw the changes away</source>
        <translation>Änderungen &amp;verwerfen</translation>
    </message>
</context>
<context>
    <name>MachinesEditor</name>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>cannot write in %1: %2</source>
        <translation>in %1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>there is no editor; VISUAL or EDITOR names one</source>
        <translation>es gibt keinen Editor; VISUAL oder EDITOR nennt einen</translation>
    </message>
    <message>
        <source>cannot start the editor %1: %2</source>
        <translation>der Editor %1 kann nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>nothing was saved</source>
        <translation>nichts wurde gespeichert</translation>
    </message>
    <message>
        <source>the editor did not end well; nothing was saved</source>
        <translation>der Editor endete mit einem Fehler; nichts wurde gespeichert</translation>
    </message>
    <message>
        <source>cannot read what was edited: %1</source>
        <translation>das Bearbeitete kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>a file with errors is not saved</source>
        <translation>eine Datei mit Fehlern wird nicht gespeichert</translation>
    </message>
    <message>
        <source>Edit again, save anyway, or discard? [e/s/d] </source>
        <translation>Erneut bearbeiten (e), trotzdem speichern (s) oder verwerfen (d)? [e/s/d] </translation>
    </message>
    <message>
        <source>%1 was changed meanwhile and is left as it is</source>
        <translation>%1 wurde inzwischen geändert und bleibt, wie sie ist</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 gespeichert.</translation>
    </message>
    <message>
        <source>%1; what you edited is in %2</source>
        <translation>%1; was Sie bearbeitet haben, steht in %2</translation>
    </message>
</context>
<context>
    <name>MachinesOffer</name>
    <message>
        <source>No machines</source>
        <translation>Keine Rechner</translation>
    </message>
    <message>
        <source>

Use this machine, with the line &quot;%1&quot;, or name others?</source>
        <translation>

Diesen Rechner verwenden, mit der Zeile „%1“, oder andere nennen?</translation>
    </message>
    <message>
        <source>&amp;Use this machine</source>
        <translation>&amp;Diesen Rechner verwenden</translation>
    </message>
    <message>
        <source>&amp;Configure...</source>
        <translation>&amp;Konfigurieren...</translation>
    </message>
</context>
<context>
    <name>MachinesReport</name>
    <message>
        <source>note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>the user&apos;s</source>
        <translation>die des Benutzers</translation>
    </message>
    <message>
        <source>the installation&apos;s</source>
        <translation>die der Installation</translation>
    </message>
    <message>
        <source>line %1, %2</source>
        <translation>Zeile %1, %2</translation>
    </message>
    <message>
        <source>all hosts belong to %1, so runs use this file</source>
        <translation>alle Hosts gehören zu %1, daher verwenden Läufe diese Datei</translation>
    </message>
    <message>
        <source>%1 (in SLURM_JOB_NODELIST), whose hosts runs use</source>
        <translation>%1 (in SLURM_JOB_NODELIST), dessen Hosts Läufe verwenden</translation>
    </message>
    <message>
        <source>%1 (%2, in %3)</source>
        <translation>%1 (%2, in %3)</translation>
    </message>
    <message>
        <source>there is no machines file</source>
        <translation>es gibt keine Rechnerdatei</translation>
    </message>
    <message>
        <source>%1 names no host</source>
        <translation>%1 nennt keinen Host</translation>
    </message>
    <message>
        <source>not used: %1, %2</source>
        <translation>nicht verwendet: %1, %2</translation>
    </message>
    <message>
        <source>There is no machines file. Looked for:</source>
        <translation>Es gibt keine Rechnerdatei. Gesucht wurde:</translation>
    </message>
    <message>
        <source>  %1 (%2, in %3)</source>
        <translation>  %1 (%2, in %3)</translation>
    </message>
    <message>
        <source>&quot;kestdesk machines edit&quot; makes the user&apos;s: a text file with a line &quot;host:count&quot; for each host;</source>
        <translation>„kestdesk machines edit“ legt die des Benutzers an: eine Textdatei mit einer Zeile „Host:Anzahl“ für jeden Host;</translation>
    </message>
    <message>
        <source>&quot;kestdesk machines use-local&quot; makes one that names this machine.</source>
        <translation>„kestdesk machines use-local“ legt eine an, die diesen Rechner nennt.</translation>
    </message>
    <message>
        <source>  ... and %1 lines more</source>
        <translation>  ... und %1 weitere Zeilen</translation>
    </message>
    <message>
        <source>in all: no processes</source>
        <translation>insgesamt: keine Prozesse</translation>
    </message>
    <message>
        <source>in all: %1 processes, hosts: %2</source>
        <translation>insgesamt: %1 Prozesse, Hosts: %2</translation>
    </message>
    <message>
        <source>... and %1 more of kind &quot;%2&quot;</source>
        <translation>... und %1 weitere der Art „%2“</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>&amp;Stop...</source>
        <translation>S&amp;toppen...</translation>
    </message>
    <message>
        <source>&amp;Farm out by OPTKEST</source>
        <translation>Durch OPTKEST &amp;verteilen</translation>
    </message>
    <message>
        <source>Op&amp;en run</source>
        <translation>Lauf ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Clear ended runs</source>
        <translation>&amp;Beendete Läufe ausblenden</translation>
    </message>
    <message>
        <source>Component &amp;launch options...</source>
        <translation>&amp;Startoptionen der Komponenten...</translation>
    </message>
    <message>
        <source>&amp;Machines file...</source>
        <translation>&amp;Rechnerdatei...</translation>
    </message>
    <message>
        <source>&amp;Preferences...</source>
        <translation>&amp;Einstellungen...</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>%1 of %2: %3</source>
        <translation>%1 von %2: %3</translation>
    </message>
    <message>
        <source>Runs the suite&apos;s solver components on models.</source>
        <translation>Wendet die Solver-Komponenten der Suite auf Modelle an.</translation>
    </message>
    <message>
        <source>This choice counts for this session only.</source>
        <translation>Diese Auswahl gilt nur für diese Sitzung.</translation>
    </message>
    <message>
        <source>Run ended</source>
        <translation>Lauf beendet</translation>
    </message>
    <message>
        <source>Stopping the runs...</source>
        <translation>Die Läufe werden gestoppt...</translation>
    </message>
    <message>
        <source>Ending what the runs have left behind...</source>
        <translation>Was die Läufe hinterlassen haben, wird beendet...</translation>
    </message>
</context>
<context>
    <name>MenuBar</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Lauf</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
</context>
<context>
    <name>MessageTableModel</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>MessageView</name>
    <message>
        <source>Show only lines with...</source>
        <translation>Nur Zeilen mit...</translation>
    </message>
    <message>
        <source>Text that messages must contain</source>
        <translation>Text, den Meldungen enthalten müssen</translation>
    </message>
    <message>
        <source>Find (Ctrl+F, F3)</source>
        <translation>Suchen (Strg+F, F3)</translation>
    </message>
    <message>
        <source>Text to find</source>
        <translation>Suchtext</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
</context>
<context>
    <name>ModelOpener</name>
    <message>
        <source>Held in the queue until you press &quot;Run all&quot; there: %1</source>
        <translation>Zurückgestellt in der Warteschlange, bis Sie dort „Alle starten“ drücken: %1</translation>
    </message>
    <message>
        <source>Model not opened</source>
        <translation>Modell nicht geöffnet</translation>
    </message>
    <message>
        <source>Open models</source>
        <translation>Modelle öffnen</translation>
    </message>
    <message>
        <source>Models (*.nec);;All (*)</source>
        <translation>Modelle (*.nec);;Alle (*)</translation>
    </message>
</context>
<context>
    <name>OptionEditors</name>
    <message>
        <source>Idle</source>
        <translation>Leerlauf</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Niedrig</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Highest</source>
        <translation>Am höchsten</translation>
    </message>
    <message>
        <source>ssh/rsh (must be installed on remote and local machine)</source>
        <translation>ssh/rsh (muss auf dem entfernten und dem lokalen Rechner installiert sein)</translation>
    </message>
    <message>
        <source>MPI (Windows only)</source>
        <translation>MPI (nur Windows)</translation>
    </message>
    <message>
        <source>Use SSPI (Active Directory) integration (Windows only, requires domain)</source>
        <translation>SSPI (Active Directory) nutzen (nur Windows, erfordert eine Domäne)</translation>
    </message>
    <message>
        <source>Local run only (no authentication required)</source>
        <translation>Nur lokaler Lauf (keine Authentifizierung erforderlich)</translation>
    </message>
    <message>
        <source>Default (rsh/ssh for UNIX, PowerShell remoting for Windows)</source>
        <translation>Standard (rsh/ssh unter UNIX, PowerShell-Remoting unter Windows)</translation>
    </message>
    <message>
        <source>High (fewer iterations and resources)</source>
        <translation>Hoch (weniger Iterationen und Ressourcen)</translation>
    </message>
    <message>
        <source>Normal (default)</source>
        <translation>Normal (Standard)</translation>
    </message>
    <message>
        <source>Low (more iterations and resources)</source>
        <translation>Niedrig (mehr Iterationen und Ressourcen)</translation>
    </message>
    <message>
        <source>%1 (none of these)</source>
        <translation>%1 (keiner von diesen)</translation>
    </message>
</context>
<context>
    <name>OptionRules</name>
    <message>
        <source>Give a whole number from 1 to %1, or leave it empty.</source>
        <translation>Geben Sie eine ganze Zahl von 1 bis %1 an, oder lassen Sie das Feld leer.</translation>
    </message>
    <message>
        <source>Give numbers with commas between them and no blanks, such as 0,1.</source>
        <translation>Geben Sie Zahlen mit Kommas dazwischen und ohne Leerzeichen an, etwa 0,1.</translation>
    </message>
    <message>
        <source>A GPU is in the list twice.</source>
        <translation>Eine GPU steht zweimal in der Liste.</translation>
    </message>
    <message>
        <source>There must be one blank between two words, and none around them.</source>
        <translation>Zwischen zwei Wörtern muss ein Leerzeichen stehen, um sie herum keines.</translation>
    </message>
    <message>
        <source>Give a positive number with a decimal point, such as 14.2, up to %1.</source>
        <translation>Geben Sie eine positive Zahl mit einem Dezimalpunkt an, etwa 14.2, bis zu %1.</translation>
    </message>
    <message>
        <source>a whole number from 1, or nothing for all</source>
        <translation>eine ganze Zahl ab 1, oder nichts für alle</translation>
    </message>
    <message>
        <source>numbers with commas between them, such as 0,1, or nothing for any</source>
        <translation>Zahlen mit Kommas dazwischen, etwa 0,1, oder nichts für beliebige</translation>
    </message>
    <message>
        <source>a host as [user@]HOST [user=NAME] [port=NUMBER] [home=FOLDER], or nothing</source>
        <translation>einen Host als [user@]HOST [user=NAME] [port=NUMMER] [home=ORDNER], oder nichts</translation>
    </message>
    <message>
        <source>a positive number in MHz, such as 14.2, or nothing</source>
        <translation>eine positive Zahl in MHz, etwa 14.2, oder nichts</translation>
    </message>
    <message>
        <source>Give a frequency, or do not specify one.</source>
        <translation>Geben Sie eine Frequenz an, oder geben Sie keine vor.</translation>
    </message>
    <message>
        <source>NAME=VALUE, one a line, with no further &quot;=&quot;</source>
        <translation>NAME=WERT, eine je Zeile, ohne ein weiteres „=“</translation>
    </message>
    <message>
        <source>any text in one line</source>
        <translation>beliebigen Text in einer Zeile</translation>
    </message>
    <message>
        <source>Control characters are not allowed.</source>
        <translation>Steuerzeichen sind nicht erlaubt.</translation>
    </message>
    <message>
        <source>Line breaks and other control characters are not allowed.</source>
        <translation>Zeilenumbrüche und andere Steuerzeichen sind nicht erlaubt.</translation>
    </message>
    <message>
        <source>There is a character that could not be read as UTF-8.</source>
        <translation>Ein Zeichen konnte nicht als UTF-8 gelesen werden.</translation>
    </message>
    <message>
        <source>The text is longer than %1 bytes.</source>
        <translation>Der Text ist länger als %1 Bytes.</translation>
    </message>
    <message>
        <source>Give a whole number.</source>
        <translation>Geben Sie eine ganze Zahl an.</translation>
    </message>
    <message>
        <source>Give a number from %1 on.</source>
        <translation>Geben Sie eine Zahl ab %1 an.</translation>
    </message>
    <message>
        <source>Give a number from %1 to %2.</source>
        <translation>Geben Sie eine Zahl von %1 bis %2 an.</translation>
    </message>
    <message>
        <source>an integer from %1</source>
        <translation>eine ganze Zahl ab %1</translation>
    </message>
    <message>
        <source>an integer from %1 to %2</source>
        <translation>eine ganze Zahl von %1 bis %2</translation>
    </message>
</context>
<context>
    <name>OptionValue</name>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
</context>
<context>
    <name>OptionsCommand</name>
    <message>
        <source>%1; nothing was changed</source>
        <translation>%1; nichts wurde geändert</translation>
    </message>
    <message>
        <source>there is no option &quot;%1&quot;; &quot;kestdesk options list&quot; shows all</source>
        <translation>die Option „%1“ gibt es nicht; „kestdesk options list“ zeigt alle</translation>
    </message>
    <message>
        <source>%1 holds it; nothing was changed</source>
        <translation>gehalten von %1; nichts wurde geändert</translation>
    </message>
    <message>
        <source>not saved in %1</source>
        <translation>nicht in %1 gespeichert</translation>
    </message>
    <message>
        <source>not saved in %1, because %2</source>
        <translation>nicht in %1 gespeichert; Grund: %2</translation>
    </message>
    <message>
        <source>%1 accepts %2, and not &quot;%3&quot;</source>
        <translation>%1 nimmt %2 an und nicht „%3“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not NAME=VALUE</source>
        <translation>„%1“ ist nicht NAME=WERT</translation>
    </message>
    <message>
        <source>%1 is empty, so %2 is without effect. %3</source>
        <translation>%1 ist leer, daher ist %2 ohne Wirkung. %3</translation>
    </message>
    <message>
        <source>  While another process holds the options, set and restore wait for %1 seconds, or for
  those of --wait; 0 waits not at all.
</source>
        <translation>  Während ein anderer Prozess die Optionen hält, warten set und restore %1 Sekunden, oder
  die von --wait; 0 wartet gar nicht.
</translation>
    </message>
</context>
<context>
    <name>OptionsLock</name>
    <message>
        <source>waiting up to %1 seconds for %2, which holds %3</source>
        <translation>bis zu %1 Sekunden Wartezeit: %3 wird von %2 gehalten</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Preferences not saved</source>
        <translation>Einstellungen nicht gespeichert</translation>
    </message>
    <message>
        <source>The preferences cannot be saved: %1.</source>
        <translation>Die Einstellungen können nicht gespeichert werden: %1.</translation>
    </message>
</context>
<context>
    <name>ProblemCures</name>
    <message>
        <source>&amp;Install the engine...</source>
        <translation>Rechenkern &amp;installieren...</translation>
    </message>
    <message>
        <source>Shows how the engine is installed</source>
        <translation>Zeigt, wie der Rechenkern installiert wird</translation>
    </message>
    <message>
        <source>&amp;Use this machine</source>
        <translation>Diesen Rechner verwe&amp;nden</translation>
    </message>
    <message>
        <source>Makes a machines file that names this machine</source>
        <translation>Legt eine Rechnerdatei an, die diesen Rechner nennt</translation>
    </message>
    <message>
        <source>Adds this machine to the machines file</source>
        <translation>Fügt diesen Rechner der Rechnerdatei hinzu</translation>
    </message>
    <message>
        <source>Choose the &amp;host...</source>
        <translation>Host wähle&amp;n...</translation>
    </message>
    <message>
        <source>Opens the component launch options, which name the remote host</source>
        <translation>Öffnet die Startoptionen der Komponenten, die den entfernten Host nennen</translation>
    </message>
    <message>
        <source>Run without the &amp;host...</source>
        <translation>Ohne den Host wiederhole&amp;n...</translation>
    </message>
    <message>
        <source>Runs it again with the host&apos;s line of the machines file as a comment; asks first</source>
        <translation>Wiederholt ihn mit der Zeile des Hosts in der Rechnerdatei als Kommentar; fragt vorher</translation>
    </message>
    <message>
        <source>Edit the &amp;machines file...</source>
        <translation>Rechnerdatei bearbeite&amp;n...</translation>
    </message>
    <message>
        <source>Opens the machines file, to take the host out or to mark it as a comment</source>
        <translation>Öffnet die Rechnerdatei, um den Host herauszunehmen oder als Kommentar zu kennzeichnen</translation>
    </message>
    <message>
        <source>Opens the machines file</source>
        <translation>Öffnet die Rechnerdatei</translation>
    </message>
    <message>
        <source>&amp;Open the card</source>
        <translation>Karte öff&amp;nen</translation>
    </message>
    <message>
        <source>Opens the model in the editor at this line</source>
        <translation>Öffnet das Modell im Editor an dieser Zeile</translation>
    </message>
</context>
<context>
    <name>QueuePanel</name>
    <message>
        <source>held</source>
        <translation>zurückgestellt</translation>
    </message>
    <message>
        <source>Run all</source>
        <translation>Alle starten</translation>
    </message>
    <message>
        <source>Let all held runs begin when their turn comes</source>
        <translation>Alle zurückgestellten Läufe beginnen lassen, wenn sie an der Reihe sind</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Zurückstellen</translation>
    </message>
    <message>
        <source>Pass the selected runs over, or let them begin</source>
        <translation>Die ausgewählten Läufe übergehen oder beginnen lassen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Let the selected run begin earlier</source>
        <translation>Den ausgewählten Lauf früher beginnen lassen</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Let the selected run begin later</source>
        <translation>Den ausgewählten Lauf später beginnen lassen</translation>
    </message>
    <message>
        <source>Remo&amp;ve</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Take the selected runs out of the queue</source>
        <translation>Die ausgewählten Läufe aus der Warteschlange nehmen</translation>
    </message>
    <message>
        <source>&amp;Waiting runs: %1</source>
        <translation>&amp;Wartende Läufe: %1</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Freigeben</translation>
    </message>
</context>
<context>
    <name>ReasonText</name>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>interrupted</source>
        <translation>unterbrochen</translation>
    </message>
    <message>
        <source>valid</source>
        <translation>gültig</translation>
    </message>
    <message>
        <source>fault</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>could not start</source>
        <translation>konnte nicht starten</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>gestoppt</translation>
    </message>
    <message>
        <source>damaged</source>
        <translation>beschädigt</translation>
    </message>
    <message>
        <source>not started</source>
        <translation>nicht gestartet</translation>
    </message>
    <message>
        <source>window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>terminal</source>
        <translation>Terminal</translation>
    </message>
    <message>
        <source>output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>line feed</source>
        <translation>Zeilenvorschub</translation>
    </message>
    <message>
        <source>percentage</source>
        <translation>Prozentsatz</translation>
    </message>
    <message>
        <source>total percentage</source>
        <translation>Gesamtprozentsatz</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>notice</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>variable</source>
        <translation>Variable</translation>
    </message>
    <message>
        <source>same</source>
        <translation>gleich</translation>
    </message>
    <message>
        <source>different</source>
        <translation>verschieden</translation>
    </message>
    <message>
        <source>only left</source>
        <translation>nur links</translation>
    </message>
    <message>
        <source>only right</source>
        <translation>nur rechts</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>the user</source>
        <translation>dem Benutzer</translation>
    </message>
    <message>
        <source>kestdesk, which was asked to end</source>
        <translation>kestdesk, das zum Beenden aufgefordert wurde</translation>
    </message>
    <message>
        <source>another process</source>
        <translation>einem anderen Prozess</translation>
    </message>
    <message>
        <source>this machine</source>
        <translation>diesem Rechner</translation>
    </message>
    <message>
        <source>its terminal or session was closed</source>
        <translation>ihr Terminal oder ihre Sitzung wurde geschlossen</translation>
    </message>
    <message>
        <source>somebody interrupted it, as Ctrl+C does</source>
        <translation>jemand hat sie unterbrochen, wie es Strg+C tut</translation>
    </message>
    <message>
        <source>somebody asked it to end: a user, the system as it shuts down, or the time limit of a job scheduler</source>
        <translation>jemand hat sie zum Beenden aufgefordert: ein Benutzer, das System beim Herunterfahren oder die Zeitgrenze eines Job-Schedulers</translation>
    </message>
    <message>
        <source>usually the system ran out of memory, or an administrator or a job scheduler killed it</source>
        <translation>meist ging dem System der Speicher aus, oder ein Administrator oder ein Job-Scheduler hat sie abgebrochen</translation>
    </message>
    <message>
        <source>somebody ended it, as Ctrl+\ does</source>
        <translation>jemand hat sie beendet, wie es Strg+\ tut</translation>
    </message>
    <message>
        <source>it used memory that it does not have, which is a fault of the program</source>
        <translation>sie hat auf Speicher zugegriffen, den sie nicht hat; das ist ein Fehler des Programms</translation>
    </message>
    <message>
        <source>usually a disk or the shared memory is full, or a file that it used was cut</source>
        <translation>meist ist ein Datenträger oder der gemeinsame Speicher voll, oder eine benutzte Datei wurde gekürzt</translation>
    </message>
    <message>
        <source>it gave up because of an error that it could not handle</source>
        <translation>sie gab auf wegen eines Fehlers, den sie nicht behandeln konnte</translation>
    </message>
    <message>
        <source>a calculation was impossible, such as a division of an integer by zero</source>
        <translation>eine Rechnung war unmöglich, etwa die Division einer ganzen Zahl durch null</translation>
    </message>
    <message>
        <source>usually it was built for another processor</source>
        <translation>meist ist sie für einen anderen Prozessor gebaut</translation>
    </message>
    <message>
        <source>it was not allowed to call the system</source>
        <translation>sie durfte das System nicht aufrufen</translation>
    </message>
    <message>
        <source>it stopped for a debugger that is not there</source>
        <translation>sie hielt für einen Debugger an, der nicht da ist</translation>
    </message>
    <message>
        <source>nobody read what it wrote any more</source>
        <translation>ihre Ausgabe wurde von niemandem mehr gelesen</translation>
    </message>
    <message>
        <source>it used up the processor time that it is allowed (ulimit -t)</source>
        <translation>sie hat die erlaubte Prozessorzeit verbraucht (ulimit -t)</translation>
    </message>
    <message>
        <source>it wrote a file larger than it is allowed (ulimit -f)</source>
        <translation>sie hat eine größere Datei geschrieben, als erlaubt ist (ulimit -f)</translation>
    </message>
    <message>
        <source>a time limit of its own passed</source>
        <translation>eine eigene Zeitgrenze ist abgelaufen</translation>
    </message>
    <message>
        <source>a program that it needs could not be executed</source>
        <translation>ein Programm, das sie braucht, konnte nicht ausgeführt werden</translation>
    </message>
    <message>
        <source>a program or a library that it needs was not found</source>
        <translation>ein Programm oder eine Bibliothek, die sie braucht, wurde nicht gefunden</translation>
    </message>
    <message>
        <source>killed</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>another program killed it</source>
        <translation>ein anderes Programm hat sie abgebrochen</translation>
    </message>
    <message>
        <source>its stack overflowed, which is a fault of the program</source>
        <translation>ihr Stack ist übergelaufen; das ist ein Fehler des Programms</translation>
    </message>
    <message>
        <source>the system ran out of memory</source>
        <translation>dem System ging der Speicher aus</translation>
    </message>
    <message>
        <source>a calculation was impossible: a division of an integer by zero</source>
        <translation>eine Rechnung war unmöglich: die Division einer ganzen Zahl durch null</translation>
    </message>
    <message>
        <source>a library that it needs was not found</source>
        <translation>eine Bibliothek, die sie braucht, wurde nicht gefunden</translation>
    </message>
    <message>
        <source>fault, exit code %1</source>
        <translation>Fehler, Exit-Code %1</translation>
    </message>
    <message>
        <source>fault, %1</source>
        <translation>Fehler, %1</translation>
    </message>
    <message>
        <source>was cut off: kestdesk, which followed it, was killed, or the computer was switched off</source>
        <translation>wurde abgeschnitten: kestdesk, das sie verfolgte, wurde abgebrochen, oder der Rechner wurde ausgeschaltet</translation>
    </message>
    <message>
        <source>ended by itself, but reported only %1 % of the run as done</source>
        <translation>endete von selbst, meldete aber nur %1 % des Laufs als erledigt</translation>
    </message>
    <message>
        <source>was ended by %1 (signal %2): %3</source>
        <translation>wurde durch %1 (Signal %2) beendet: %3</translation>
    </message>
    <message>
        <source>was ended by %1 (exception %2): %3</source>
        <translation>wurde durch %1 (Ausnahme %2) beendet: %3</translation>
    </message>
    <message>
        <source>was killed (exception %1): %2</source>
        <translation>wurde abgebrochen (Ausnahme %1): %2</translation>
    </message>
    <message>
        <source>was ended by signal %1</source>
        <translation>wurde durch Signal %1 beendet</translation>
    </message>
    <message>
        <source>was ended by exception %1</source>
        <translation>wurde durch Ausnahme %1 beendet</translation>
    </message>
    <message>
        <source>ended with exit code %1, which stands for %2: %3</source>
        <translation>endete mit dem Exit-Code %1, der für %2 steht: %3</translation>
    </message>
    <message>
        <source>ended with exit code %1: %2</source>
        <translation>endete mit dem Exit-Code %1: %2</translation>
    </message>
    <message>
        <source>ended with exit code %1</source>
        <translation>endete mit dem Exit-Code %1</translation>
    </message>
    <message>
        <source>signal %1</source>
        <translation>Signal %1</translation>
    </message>
    <message>
        <source>exception %1</source>
        <translation>Ausnahme %1</translation>
    </message>
    <message>
        <source>%1 is being run already, by %2</source>
        <translation>%1 wird bereits gerechnet, von %2</translation>
    </message>
    <message>
        <source>process %1 on %2</source>
        <translation>Prozess %1 auf %2</translation>
    </message>
    <message>
        <source>%1 cannot be ended and goes on</source>
        <translation>%1 lässt sich nicht beenden und läuft weiter</translation>
    </message>
    <message>
        <source>cannot start %1: %2</source>
        <translation>%1 kann nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>the model %1 cannot be run: the path of its folder has %2 characters, and this system starts no program in a folder whose path has more than %3; move the model to a shorter path</source>
        <translation>das Modell %1 kann nicht gerechnet werden: der Pfad seines Ordners hat %2 Zeichen, und dieses System startet kein Programm in einem Ordner, dessen Pfad mehr als %3 hat; verschieben Sie das Modell in einen kürzeren Pfad</translation>
    </message>
    <message>
        <source>the model %1 cannot be run: %2</source>
        <translation>das Modell %1 kann nicht gerechnet werden: %2</translation>
    </message>
    <message>
        <source>there is no model %1</source>
        <translation>das Modell %1 gibt es nicht</translation>
    </message>
    <message>
        <source>%1 is a folder and not a model</source>
        <translation>%1 ist ein Ordner und kein Modell</translation>
    </message>
    <message>
        <source>there is no component %1 in %2 (KEST_HOME names the installation)</source>
        <translation>die Komponente %1 gibt es nicht in %2 (KEST_HOME nennt die Installation)</translation>
    </message>
    <message>
        <source>the machines file cannot be copied: other runs use its copies gui_tmp_machfile_0 to gui_tmp_machfile_999 in %1, or have left them; remove those when no other run is going on</source>
        <translation>die Rechnerdatei kann nicht kopiert werden: andere Läufe verwenden ihre Kopien gui_tmp_machfile_0 bis gui_tmp_machfile_999 in %1 oder haben sie zurückgelassen; entfernen Sie diese, wenn kein anderer Lauf im Gange ist</translation>
    </message>
    <message>
        <source>the machines file cannot be copied to %1</source>
        <translation>die Rechnerdatei kann nicht nach %1 kopiert werden</translation>
    </message>
    <message>
        <source>the machines file %1 names no host; %2 lets it name this machine, &quot;kestdesk machines edit&quot; changes it</source>
        <translation>die Rechnerdatei %1 nennt keinen Host; %2 lässt sie diesen Rechner nennen, „kestdesk machines edit“ ändert sie</translation>
    </message>
    <message>
        <source>the machines file %1 names no host</source>
        <translation>die Rechnerdatei %1 nennt keinen Host</translation>
    </message>
    <message>
        <source>%1 was not started; %2 makes a machines file that names this machine</source>
        <translation>%1 wurde nicht gestartet; %2 legt eine Rechnerdatei an, die diesen Rechner nennt</translation>
    </message>
    <message>
        <source>%1 was not started</source>
        <translation>%1 wurde nicht gestartet</translation>
    </message>
    <message>
        <source>%1, which the run was started with, is no longer there</source>
        <translation>%1, womit der Lauf gestartet wurde, ist nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>the folder %1, in which the run was started, is no longer there</source>
        <translation>der Ordner %1, in dem der Lauf gestartet wurde, ist nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>the record of run %1 has no copy of the machines file</source>
        <translation>die Aufzeichnung von Lauf %1 hat keine Kopie der Rechnerdatei</translation>
    </message>
    <message>
        <source>the record of run %1 has no model</source>
        <translation>die Aufzeichnung von Lauf %1 hat kein Modell</translation>
    </message>
    <message>
        <source>the model cannot be written to %1: %2</source>
        <translation>das Modell kann nicht nach %1 geschrieben werden: %2</translation>
    </message>
    <message>
        <source>too many copies of the model are in %1</source>
        <translation>zu viele Kopien des Modells sind in %1</translation>
    </message>
    <message>
        <source>the folder %1 cannot be made</source>
        <translation>der Ordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>nothing can be written into %1</source>
        <translation>in %1 kann nichts geschrieben werden</translation>
    </message>
    <message>
        <source>no folder can be added to %1</source>
        <translation>in %1 kann kein Ordner angelegt werden</translation>
    </message>
    <message>
        <source>the copy in the record of run %1 cannot be read: %2</source>
        <translation>die Kopie in der Aufzeichnung von Lauf %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>the messages of run %1 cannot be read</source>
        <translation>die Meldungen von Lauf %1 können nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1 is no longer what run %2 has written</source>
        <translation>%1 ist nicht mehr das, was Lauf %2 geschrieben hat</translation>
    </message>
    <message>
        <source>%1 is no lock file and must be removed</source>
        <translation>%1 ist keine Sperrdatei und muss entfernt werden</translation>
    </message>
    <message>
        <source>%1 cannot be used: %2</source>
        <translation>%1 kann nicht verwendet werden: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 cannot be removed</source>
        <translation>%1 kann nicht entfernt werden</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>RecordExport</name>
    <message>
        <source>the run for readers</source>
        <translation>der Lauf zum Lesen</translation>
    </message>
    <message>
        <source>how the run was started and how it ended</source>
        <translation>wie der Lauf gestartet wurde und wie er endete</translation>
    </message>
    <message>
        <source>what the component reported, a line of JSON each, with milliseconds</source>
        <translation>was die Komponente gemeldet hat, je eine Zeile JSON, mit Millisekunden</translation>
    </message>
    <message>
        <source>the model as it was</source>
        <translation>das Modell, wie es war</translation>
    </message>
    <message>
        <source>the machines file as it was</source>
        <translation>die Rechnerdatei, wie sie war</translation>
    </message>
    <message>
        <source>it is too large (%1)</source>
        <translation>sie ist zu groß (%1)</translation>
    </message>
    <message>
        <source>%1: a file that the run has written; it may have been changed since</source>
        <translation>%1: eine Datei, die der Lauf geschrieben hat; sie kann seither geändert worden sein</translation>
    </message>
    <message>
        <source>%1: a file that the run has written</source>
        <translation>%1: eine Datei, die der Lauf geschrieben hat</translation>
    </message>
    <message>
        <source>it has been changed since the run</source>
        <translation>sie wurde seit dem Lauf geändert</translation>
    </message>
    <message>
        <source>The record of run %1 of %2</source>
        <translation>Die Aufzeichnung von Lauf %1 von %2</translation>
    </message>
    <message>
        <source>Left out:</source>
        <translation>Weggelassen:</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The record names the user, the computer, folders, and variables of the
environment that are set in the launch options.</source>
        <translation>Die Aufzeichnung nennt den Benutzer, den Rechner, Ordner und die Umgebungsvariablen,
die in den Startoptionen gesetzt sind.</translation>
    </message>
</context>
<context>
    <name>RecordWindow</name>
    <message>
        <source>Run &amp;again exactly</source>
        <translation>&amp;Genau so wiederholen</translation>
    </message>
    <message>
        <source>R&amp;esume</source>
        <translation>Fo&amp;rtsetzen</translation>
    </message>
    <message>
        <source>&amp;Summary</source>
        <translation>Ü&amp;bersicht</translation>
    </message>
    <message>
        <source>&amp;Command</source>
        <translation>Befeh&amp;l</translation>
    </message>
    <message>
        <source>&amp;Differences</source>
        <translation>&amp;Unterschiede</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>The record has been deleted.</source>
        <translation>Die Aufzeichnung wurde gelöscht.</translation>
    </message>
    <message>
        <source>&amp;Messages</source>
        <translation>&amp;Meldungen</translation>
    </message>
    <message>
        <source>&amp;Output</source>
        <translation>&amp;Ausgabe</translation>
    </message>
    <message>
        <source>Runs it again and computes only what this run has not kept</source>
        <translation>Wiederholt ihn und rechnet nur, was dieser Lauf nicht behalten hat</translation>
    </message>
    <message>
        <source>Run %1</source>
        <translation>Lauf %1</translation>
    </message>
</context>
<context>
    <name>RecordWindows</name>
    <message>
        <source>Model not opened</source>
        <translation>Modell nicht geöffnet</translation>
    </message>
    <message>
        <source>There is no model %1 any more.</source>
        <translation>Das Modell %1 gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>Opening line %1 of %2 in editkest</source>
        <translation>Zeile %1 von %2 wird in editkest geöffnet</translation>
    </message>
    <message>
        <source>Machines file</source>
        <translation>Rechnerdatei</translation>
    </message>
    <message>
        <source>The machines file names this machine now, with the line &quot;%1&quot;</source>
        <translation>Die Rechnerdatei nennt jetzt diesen Rechner, mit der Zeile „%1“</translation>
    </message>
    <message>
        <source>The engine</source>
        <translation>Der Rechenkern</translation>
    </message>
    <message>
        <source>The components compute with the engine nec2c, which is a package of its own.

On Debian and Ubuntu, install it in a terminal with

    sudo apt install nec2c

An engine in another place is named by the environment variable KEST_NEC2C.</source>
        <translation>Die Komponenten rechnen mit dem Rechenkern nec2c, der ein eigenes Paket ist.

Unter Debian und Ubuntu installieren Sie ihn in einem Terminal mit

    sudo apt install nec2c

Einen Rechenkern an einem anderen Ort nennt die Umgebungsvariable KEST_NEC2C.</translation>
    </message>
</context>
<context>
    <name>RemainingTime</name>
    <message>
        <source>about %1 left</source>
        <translation>noch etwa %1</translation>
    </message>
    <message>
        <source>about %1</source>
        <translation>etwa %1</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 h</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 Tage</translation>
    </message>
</context>
<context>
    <name>RepeatedRun</name>
    <message>
        <source>this kestdesk knows no component %1</source>
        <translation>dieses kestdesk kennt keine Komponente %1</translation>
    </message>
    <message>
        <source>there is no model %1 as it was, and the record of run %2 has no copy of it</source>
        <translation>das Modell %1 gibt es nicht mehr, wie es war, und die Aufzeichnung von Lauf %2 hat keine Kopie davon</translation>
    </message>
    <message>
        <source>%1 has been changed since run %2; as it was then, it is run as %3</source>
        <translation>%1 wurde seit Lauf %2 geändert; wie es damals war, wird es als %3 gerechnet</translation>
    </message>
    <message>
        <source>run %1 is not resumed. %2</source>
        <translation>Lauf %1 wird nicht fortgesetzt. %2</translation>
    </message>
    <message>
        <source>run %1 is not repeated. %2</source>
        <translation>Lauf %1 wird nicht wiederholt. %2</translation>
    </message>
    <message>
        <source>a comment in the copy of the machines file: %1</source>
        <translation>ein Kommentar in der Kopie der Rechnerdatei: %1</translation>
    </message>
</context>
<context>
    <name>ResumedRun</name>
    <message>
        <source>The run is still going on.</source>
        <translation>Der Lauf ist noch im Gange.</translation>
    </message>
    <message>
        <source>The run has done all of its work.</source>
        <translation>Der Lauf hat seine ganze Arbeit getan.</translation>
    </message>
    <message>
        <source>The run was not started.</source>
        <translation>Der Lauf wurde nicht gestartet.</translation>
    </message>
    <message>
        <source>Runs of %1 cannot be resumed.</source>
        <translation>Läufe von %1 können nicht fortgesetzt werden.</translation>
    </message>
    <message>
        <source>The model %1 is no longer there.</source>
        <translation>Das Modell %1 ist nicht mehr vorhanden.</translation>
    </message>
    <message>
        <source>There is no %1 beside the model to continue from.</source>
        <translation>Neben dem Modell gibt es kein %1, von dem aus fortgesetzt werden kann.</translation>
    </message>
</context>
<context>
    <name>RunActions</name>
    <message>
        <source>Run %1: %2, %3</source>
        <translation>Lauf %1: %2, %3</translation>
    </message>
    <message>
        <source>Export the record</source>
        <translation>Aufzeichnung exportieren</translation>
    </message>
    <message>
        <source>Zip files (*.zip)</source>
        <translation>Zip-Dateien (*.zip)</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Delete the record of this run?</source>
        <translation>Aufzeichnung dieses Laufs löschen?</translation>
    </message>
    <message>
        <source>Delete the records of these runs?</source>
        <translation>Aufzeichnungen dieser Läufe löschen?</translation>
    </message>
    <message>
        <source>Delete records</source>
        <translation>Aufzeichnungen löschen</translation>
    </message>
    <message>
        <source>%1

%2

Models and results stay.</source>
        <translation>%1

%2

Modelle und Ergebnisse bleiben.</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Show recor&amp;d</source>
        <translation>Aufzeichnung an&amp;zeigen</translation>
    </message>
    <message>
        <source>Show what is kept of the selected runs: messages, output, command, differences</source>
        <translation>Anzeigen, was von den ausgewählten Läufen aufbewahrt ist: Meldungen, Ausgabe, Befehl, Unterschiede</translation>
    </message>
    <message>
        <source>Run &amp;again exactly</source>
        <translation>&amp;Genau so wiederholen</translation>
    </message>
    <message>
        <source>Run the same command with the same options on the same model</source>
        <translation>Denselben Befehl mit denselben Optionen auf dasselbe Modell anwenden</translation>
    </message>
    <message>
        <source>Resu&amp;me</source>
        <translation>Fo&amp;rtsetzen</translation>
    </message>
    <message>
        <source>Run it again and compute only what the stopped run has not kept</source>
        <translation>Ihn wiederholen und nur rechnen, was der gestoppte Lauf nicht behalten hat</translation>
    </message>
    <message>
        <source>Open f&amp;older</source>
        <translation>&amp;Ordner öffnen</translation>
    </message>
    <message>
        <source>Show the model&apos;s folder in the file manager</source>
        <translation>Den Ordner des Modells im Dateimanager anzeigen</translation>
    </message>
    <message>
        <source>Copy comma&amp;nd</source>
        <translation>Befehl &amp;kopieren</translation>
    </message>
    <message>
        <source>Copy the command of the selected runs for a terminal</source>
        <translation>Den Befehl der ausgewählten Läufe für ein Terminal kopieren</translation>
    </message>
    <message>
        <source>E&amp;xport record...</source>
        <translation>Aufzeichnung e&amp;xportieren...</translation>
    </message>
    <message>
        <source>Put all that is kept of the selected run, and its results, into one zip file for somebody else</source>
        <translation>Alles, was vom ausgewählten Lauf aufbewahrt ist, und seine Ergebnisse in eine Zip-Datei für jemand anderen packen</translation>
    </message>
    <message>
        <source>De&amp;lete records...</source>
        <translation>Aufzeichnungen &amp;löschen...</translation>
    </message>
    <message>
        <source>Delete the records of the selected runs; models and results stay</source>
        <translation>Die Aufzeichnungen der ausgewählten Läufe löschen; Modelle und Ergebnisse bleiben</translation>
    </message>
    <message>
        <source>F&amp;ilter runs</source>
        <translation>Läufe f&amp;iltern</translation>
    </message>
    <message>
        <source>Show only some of the runs</source>
        <translation>Nur einen Teil der Läufe anzeigen</translation>
    </message>
    <message>
        <source>Sho&amp;w all runs</source>
        <translation>&amp;Alle Läufe anzeigen</translation>
    </message>
    <message>
        <source>Show all runs again that were filtered or cleared</source>
        <translation>Alle gefilterten oder ausgeblendeten Läufe wieder anzeigen</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Select one run that was stopped or interrupted.</source>
        <translation>Wählen Sie einen Lauf aus, der gestoppt oder unterbrochen wurde.</translation>
    </message>
    <message>
        <source>Run %1 was exported to %2</source>
        <translation>Lauf %1 wurde nach %2 exportiert</translation>
    </message>
    <message>
        <source>Run %1 was not exported: %2</source>
        <translation>Lauf %1 wurde nicht exportiert: %2</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>%1 cannot be opened</source>
        <translation>%1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Copied the command of the run</source>
        <translation>Der Befehl des Laufs wurde kopiert</translation>
    </message>
    <message>
        <source>Copied the commands of %1 runs</source>
        <translation>Die Befehle von %1 Läufen wurden kopiert</translation>
    </message>
    <message>
        <source>These records could not be deleted: %1</source>
        <translation>Diese Aufzeichnungen konnten nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>The record of the run has not been read yet.</source>
        <translation>Die Aufzeichnung des Laufs ist noch nicht gelesen.</translation>
    </message>
</context>
<context>
    <name>RunAgain</name>
    <message>
        <source>The model %1 has changed since run %2.

Which one is to be run?</source>
        <translation>Das Modell %1 hat sich seit Lauf %2 geändert.

Welches soll gerechnet werden?</translation>
    </message>
    <message>
        <source>The model %1 is no longer there.

The record of run %2 has it as it was.</source>
        <translation>Das Modell %1 ist nicht mehr vorhanden.

Die Aufzeichnung von Lauf %2 hat es, wie es war.</translation>
    </message>
    <message>
        <source>Run again</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>As it &amp;was</source>
        <translation>Wie es &amp;war</translation>
    </message>
    <message>
        <source>As it is &amp;now</source>
        <translation>Wie es &amp;jetzt ist</translation>
    </message>
    <message>
        <source>Run %1 is not resumed. %2</source>
        <translation>Lauf %1 wird nicht fortgesetzt. %2</translation>
    </message>
    <message>
        <source>There is no record of run %1 any more.</source>
        <translation>Die Aufzeichnung von Lauf %1 gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The model %1 is no longer there, and the record has no copy.</source>
        <translation>Das Modell %1 ist nicht mehr vorhanden, und die Aufzeichnung hat keine Kopie.</translation>
    </message>
</context>
<context>
    <name>RunComparison</name>
    <message>
        <source>component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>segments</source>
        <translation>Segmente</translation>
    </message>
    <message>
        <source>frequencies</source>
        <translation>Frequenzen</translation>
    </message>
    <message>
        <source>run options</source>
        <translation>Laufoptionen</translation>
    </message>
    <message>
        <source>processes</source>
        <translation>Prozesse</translation>
    </message>
    <message>
        <source>program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>host</source>
        <translation>Host</translation>
    </message>
    <message>
        <source>system</source>
        <translation>System</translation>
    </message>
    <message>
        <source>processor</source>
        <translation>Prozessor</translation>
    </message>
    <message>
        <source>cores</source>
        <translation>Kerne</translation>
    </message>
    <message>
        <source>user</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>version of the suite</source>
        <translation>Version der Suite</translation>
    </message>
    <message>
        <source>version of Qt</source>
        <translation>Version von Qt</translation>
    </message>
    <message>
        <source>installation</source>
        <translation>Installation</translation>
    </message>
    <message>
        <source>state</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>outcome</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>problem</source>
        <translation>Problem</translation>
    </message>
    <message>
        <source>stopped by</source>
        <translation>gestoppt von</translation>
    </message>
    <message>
        <source>exit code or signal</source>
        <translation>Exit-Code oder Signal</translation>
    </message>
    <message>
        <source>ended by a signal</source>
        <translation>durch ein Signal beendet</translation>
    </message>
    <message>
        <source>percent done</source>
        <translation>Prozent erledigt</translation>
    </message>
    <message>
        <source>errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>notices</source>
        <translation>Hinweise</translation>
    </message>
</context>
<context>
    <name>RunDesk</name>
    <message>
        <source>The window of this run has been closed.</source>
        <translation>Das Fenster dieses Laufs wurde geschlossen.</translation>
    </message>
    <message>
        <source>Run %1 is run again</source>
        <translation>Lauf %1 wird wiederholt</translation>
    </message>
    <message>
        <source>Run %1 is resumed</source>
        <translation>Lauf %1 wird fortgesetzt</translation>
    </message>
</context>
<context>
    <name>RunFilter</name>
    <message>
        <source>%1 (%2 runs)</source>
        <translation>%1 (%2 Läufe)</translation>
    </message>
</context>
<context>
    <name>RunFilterBar</name>
    <message>
        <source>All states</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Valid</source>
        <translation>Gültig</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Gestoppt</translation>
    </message>
    <message>
        <source>Not started</source>
        <translation>Nicht gestartet</translation>
    </message>
    <message>
        <source>Interrupted</source>
        <translation>Unterbrochen</translation>
    </message>
    <message>
        <source>Damaged</source>
        <translation>Beschädigt</translation>
    </message>
    <message>
        <source>Filter by model, state, outcome or number</source>
        <translation>Nach Modell, Zustand, Ausgang oder Nummer filtern</translation>
    </message>
    <message>
        <source>Filter of the runs</source>
        <translation>Filter der Läufe</translation>
    </message>
    <message>
        <source>State of the runs</source>
        <translation>Zustand der Läufe</translation>
    </message>
    <message>
        <source>Show only runs in this state</source>
        <translation>Nur Läufe in diesem Zustand anzeigen</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppieren</translation>
    </message>
    <message>
        <source>Keep the runs of a model together</source>
        <translation>Die Läufe eines Modells zusammenhalten</translation>
    </message>
</context>
<context>
    <name>RunListPart</name>
    <message>
        <source>His&amp;tory:</source>
        <translation>&amp;Verlauf:</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>RunListReport</name>
    <message>
        <source>Run</source>
        <translation>Lauf</translation>
    </message>
    <message>
        <source>Started</source>
        <translation>Gestartet</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
</context>
<context>
    <name>RunListView</name>
    <message>
        <source>Runs</source>
        <translation>Läufe</translation>
    </message>
</context>
<context>
    <name>RunNumbers</name>
    <message>
        <source>no runs are recorded</source>
        <translation>es sind keine Läufe aufgezeichnet</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither the number of a run nor &quot;last&quot;</source>
        <translation>„%1“ ist weder die Nummer eines Laufs noch „last“</translation>
    </message>
    <message>
        <source>the record of run %1 in %2 cannot be read</source>
        <translation>die Aufzeichnung von Lauf %1 in %2 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>there is no run %1; &quot;kestdesk runs list&quot; shows all</source>
        <translation>Lauf %1 gibt es nicht; „kestdesk runs list“ zeigt alle</translation>
    </message>
</context>
<context>
    <name>RunOptionWords</name>
    <message>
        <source>Run in parallel on the hosts of the machines file.</source>
        <translation>Parallel auf den Hosts der Rechnerdatei rechnen.</translation>
    </message>
    <message>
        <source>Run on the remote host of the launch options.</source>
        <translation>Auf dem entfernten Host der Startoptionen rechnen.</translation>
    </message>
    <message>
        <source>Farm the optimiser&apos;s runs out to the hosts of the machines file.</source>
        <translation>Die Läufe des Optimierers auf die Hosts der Rechnerdatei verteilen.</translation>
    </message>
</context>
<context>
    <name>RunPanel</name>
    <message>
        <source>&amp;Parallel</source>
        <translation>&amp;Parallel</translation>
    </message>
    <message>
        <source>Solve with several processes, on the hosts of the machines file</source>
        <translation>Mit mehreren Prozessen lösen, auf den Hosts der Rechnerdatei</translation>
    </message>
    <message>
        <source>Re&amp;mote</source>
        <translation>&amp;Remote</translation>
    </message>
    <message>
        <source>Run on the remote host of the component launch options</source>
        <translation>Auf dem entfernten Host der Startoptionen rechnen</translation>
    </message>
    <message>
        <source>Mo&amp;del:</source>
        <translation>&amp;Modell:</translation>
    </message>
    <message>
        <source>Open a model, or drop one on this window</source>
        <translation>Öffnen Sie ein Modell, oder ziehen Sie eines auf dieses Fenster</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Op&amp;en...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Component:</source>
        <translation>&amp;Komponente:</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>Run/launch</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>R&amp;un</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>S&amp;toppen</translation>
    </message>
</context>
<context>
    <name>RunSummary</name>
    <message>
        <source>1 frequency</source>
        <translation>1 Frequenz</translation>
    </message>
    <message>
        <source>%1 frequencies</source>
        <translation>%1 Frequenzen</translation>
    </message>
    <message>
        <source>Run %1: %2, %3</source>
        <translation>Lauf %1: %2, %3</translation>
    </message>
    <message>
        <source>the record is not complete: %1</source>
        <translation>die Aufzeichnung ist unvollständig: %1</translation>
    </message>
    <message>
        <source>model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>run options</source>
        <translation>Laufoptionen</translation>
    </message>
    <message>
        <source>processes</source>
        <translation>Prozesse</translation>
    </message>
    <message>
        <source>from</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>started</source>
        <translation>gestartet</translation>
    </message>
    <message>
        <source>ended</source>
        <translation>beendet</translation>
    </message>
    <message>
        <source>duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>done</source>
        <translation>erledigt</translation>
    </message>
    <message>
        <source>stopped by</source>
        <translation>gestoppt von</translation>
    </message>
    <message>
        <source>program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>arguments</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>option</source>
        <translation>Option</translation>
    </message>
    <message>
        <source>%1=%2 (default: %3)</source>
        <translation>%1=%2 (Standard: %3)</translation>
    </message>
    <message>
        <source>variable</source>
        <translation>Variable</translation>
    </message>
    <message>
        <source>computer</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>user</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>versions</source>
        <translation>Versionen</translation>
    </message>
    <message>
        <source>suite %1</source>
        <translation>Suite %1</translation>
    </message>
    <message>
        <source>installation</source>
        <translation>Installation</translation>
    </message>
    <message>
        <source>record</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Files:</source>
        <translation>Dateien:</translation>
    </message>
    <message>
        <source>... and %1 more</source>
        <translation>... und %1 weitere</translation>
    </message>
    <message>
        <source>Last lines of the output:</source>
        <translation>Letzte Zeilen der Ausgabe:</translation>
    </message>
    <message>
        <source>the messages of this run are missing</source>
        <translation>die Meldungen dieses Laufs fehlen</translation>
    </message>
    <message>
        <source>%1 left out, since the record was full</source>
        <translation>%1 weggelassen, weil die Aufzeichnung voll war</translation>
    </message>
</context>
<context>
    <name>RunTableModel</name>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Elapsed</source>
        <translation>Vergangen</translation>
    </message>
    <message>
        <source>Remaining</source>
        <translation>Verbleibend</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Started</source>
        <translation>Gestartet</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
</context>
<context>
    <name>RunTexts</name>
    <message>
        <source>%1 core</source>
        <translation>%1 Kern</translation>
    </message>
    <message>
        <source>%1 cores</source>
        <translation>%1 Kerne</translation>
    </message>
    <message>
        <source>%1 error</source>
        <translation>%1 Fehler</translation>
    </message>
    <message>
        <source>%1 errors</source>
        <translation>%1 Fehler</translation>
    </message>
    <message>
        <source>%1 file</source>
        <translation>%1 Datei</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>%1 host</source>
        <translation>%1 Host</translation>
    </message>
    <message>
        <source>%1 hosts</source>
        <translation>%1 Hosts</translation>
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
        <source>%1 model</source>
        <translation>%1 Modell</translation>
    </message>
    <message>
        <source>%1 models</source>
        <translation>%1 Modelle</translation>
    </message>
    <message>
        <source>%1 notice</source>
        <translation>%1 Hinweis</translation>
    </message>
    <message>
        <source>%1 notices</source>
        <translation>%1 Hinweise</translation>
    </message>
    <message>
        <source>%1 process</source>
        <translation>%1 Prozess</translation>
    </message>
    <message>
        <source>%1 processes</source>
        <translation>%1 Prozesse</translation>
    </message>
    <message>
        <source>%1 record</source>
        <translation>%1 Aufzeichnung</translation>
    </message>
    <message>
        <source>%1 records</source>
        <translation>%1 Aufzeichnungen</translation>
    </message>
    <message>
        <source>%1 second</source>
        <translation>%1 Sekunde</translation>
    </message>
    <message>
        <source>%1 seconds</source>
        <translation>%1 Sekunden</translation>
    </message>
    <message>
        <source>%1 segment</source>
        <translation>%1 Segment</translation>
    </message>
    <message>
        <source>%1 segments</source>
        <translation>%1 Segmente</translation>
    </message>
    <message>
        <source>%1 warning</source>
        <translation>%1 Warnung</translation>
    </message>
    <message>
        <source>%1 warnings</source>
        <translation>%1 Warnungen</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
</context>
<context>
    <name>RunWithoutHost</name>
    <message>
        <source>The host %1 is not in the machines file of the run.</source>
        <translation>Der Host %1 steht nicht in der Rechnerdatei des Laufs.</translation>
    </message>
    <message>
        <source>%1 is the only host in the machines file of the run.</source>
        <translation>%1 ist der einzige Host in der Rechnerdatei des Laufs.</translation>
    </message>
</context>
<context>
    <name>RunsCommand</name>
    <message>
        <source>&quot;%1&quot; is no state of a run; the states are %2</source>
        <translation>„%1“ ist kein Zustand eines Laufs; die Zustände sind %2</translation>
    </message>
    <message>
        <source>no runs are recorded</source>
        <translation>es sind keine Läufe aufgezeichnet</translation>
    </message>
    <message>
        <source>no recorded run is like that</source>
        <translation>kein aufgezeichneter Lauf ist so</translation>
    </message>
    <message>
        <source>--output shows the output alone</source>
        <translation>--output zeigt nur die Ausgabe</translation>
    </message>
    <message>
        <source>the name of the export must end in .zip, and %1 does not</source>
        <translation>der Name des Exports muss auf .zip enden, und %1 tut das nicht</translation>
    </message>
    <message>
        <source>Wrote %1 (%2).</source>
        <translation>%1 (%2) geschrieben.</translation>
    </message>
    <message>
        <source>Deleted %1.</source>
        <translation>%1 gelöscht.</translation>
    </message>
    <message>
        <source>there is no run %1; nothing was deleted</source>
        <translation>Lauf %1 gibt es nicht; nichts wurde gelöscht</translation>
    </message>
    <message>
        <source>run %1 is still running</source>
        <translation>Lauf %1 läuft noch</translation>
    </message>
    <message>
        <source>the record of run %1 cannot be deleted</source>
        <translation>die Aufzeichnung von Lauf %1 kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>limits, --all and numbers exclude each other</source>
        <translation>Grenzen, --all und Nummern schließen einander aus</translation>
    </message>
    <message>
        <source>  A NUMBER is that of &quot;list&quot;, or &quot;last&quot;. Exit code: 0 done, 1 no such run or failed, 2 wrong
  command. Of &quot;compare&quot;: 0 the same, 1 different, 2 not compared. Of &quot;again&quot;: that of the run.
</source>
        <translation>  Eine NUMBER ist die von „list“, oder „last“. Exit-Code: 0 erledigt, 1 kein solcher Lauf oder
  gescheitert, 2 falscher Befehl. Von „compare“: 0 gleich, 1 verschieden, 2 nicht verglichen. Von „again“: der des Laufs.
</translation>
    </message>
    <message>
        <source>--without takes hosts with commas between them</source>
        <translation>--without nimmt Hosts mit Kommas dazwischen an</translation>
    </message>
</context>
<context>
    <name>SampleModels</name>
    <message>
        <source>the folder %1 cannot be made</source>
        <translation>der Ordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>StopQuestion</name>
    <message>
        <source>Stop a run</source>
        <translation>Lauf stoppen</translation>
    </message>
    <message>
        <source>Stop %1?</source>
        <translation>%1 stoppen?</translation>
    </message>
    <message>
        <source>Stop these %1 runs?</source>
        <translation>Diese %1 Läufe stoppen?</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Stoppen</translation>
    </message>
    <message>
        <source>Runs are still going</source>
        <translation>Es laufen noch Läufe</translation>
    </message>
    <message>
        <source>Stop %1, and quit?</source>
        <translation>%1 stoppen und beenden?</translation>
    </message>
    <message>
        <source>Stop these %1 runs, and quit?</source>
        <translation>Diese %1 Läufe stoppen und beenden?</translation>
    </message>
    <message>
        <source>&amp;Stop and quit</source>
        <translation>&amp;Stoppen und beenden</translation>
    </message>
    <message>
        <source>%1, has not stopped yet. End it by force and quit?</source>
        <translation>%1, hat noch nicht angehalten. Gewaltsam beenden und das Programm verlassen?</translation>
    </message>
    <message>
        <source>These %1 runs have not stopped yet. End them by force and quit?</source>
        <translation>Diese %1 Läufe haben noch nicht angehalten. Gewaltsam beenden und das Programm verlassen?</translation>
    </message>
    <message>
        <source>&amp;End by force</source>
        <translation>&amp;Gewaltsam beenden</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>&amp;Keep running</source>
        <translation>&amp;Weiterlaufen lassen</translation>
    </message>
</context>
<context>
    <name>Subcommand</name>
    <message>
        <source>show the machines file in use and what is wrong with it</source>
        <translation>die verwendete Rechnerdatei anzeigen, und was an ihr falsch ist</translation>
    </message>
    <message>
        <source>and ask each host whether it answers, and for its cores</source>
        <translation>und jeden Host fragen, ob er antwortet, und nach seinen Kernen</translation>
    </message>
    <message>
        <source>change the user&apos;s machines file with $VISUAL or $EDITOR</source>
        <translation>die Rechnerdatei des Benutzers mit $VISUAL oder $EDITOR ändern</translation>
    </message>
    <message>
        <source>let the user&apos;s machines file name this machine alone</source>
        <translation>die Rechnerdatei des Benutzers nur diesen Rechner nennen lassen</translation>
    </message>
    <message>
        <source>show all options as NAME=VALUE</source>
        <translation>alle Optionen als NAME=WERT anzeigen</translation>
    </message>
    <message>
        <source>show the value of one</source>
        <translation>den Wert einer Option anzeigen</translation>
    </message>
    <message>
        <source>change some, all or none of them</source>
        <translation>einige, alle oder keine ändern</translation>
    </message>
    <message>
        <source>take the installation&apos;s defaults</source>
        <translation>die Standardwerte der Installation übernehmen</translation>
    </message>
    <message>
        <source>show the words that one accepts</source>
        <translation>die Wörter anzeigen, die eine Option annimmt</translation>
    </message>
    <message>
        <source>show the recorded runs, the newest first</source>
        <translation>die aufgezeichneten Läufe anzeigen, die neuesten zuerst</translation>
    </message>
    <message>
        <source>show how a run was started and how it ended</source>
        <translation>anzeigen, wie ein Lauf gestartet wurde und wie er endete</translation>
    </message>
    <message>
        <source>run it once more, or resume it, exactly as it was</source>
        <translation>ihn genau so wiederholen oder fortsetzen, wie er war</translation>
    </message>
    <message>
        <source>show how two runs differ, and their results</source>
        <translation>anzeigen, wie sich zwei Läufe und ihre Ergebnisse unterscheiden</translation>
    </message>
    <message>
        <source>write one file for the support</source>
        <translation>eine Datei für den Support schreiben</translation>
    </message>
    <message>
        <source>delete old records, or those of the numbers, or all</source>
        <translation>alte Aufzeichnungen löschen, oder die der Nummern, oder alle</translation>
    </message>
</context>
<context>
    <name>SummaryPage</name>
    <message>
        <source>unchanged since</source>
        <translation>seither unverändert</translation>
    </message>
    <message>
        <source>changed since</source>
        <translation>seither geändert</translation>
    </message>
    <message>
        <source>no longer there</source>
        <translation>nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>%1 errors, %2 warnings, %3 notices</source>
        <translation>%1 Fehler, %2 Warnungen, %3 Hinweise</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
    <message>
        <source>Ended by</source>
        <translation>Beendet durch</translation>
    </message>
    <message>
        <source>Exit code</source>
        <translation>Exit-Code</translation>
    </message>
    <message>
        <source>Stopped by</source>
        <translation>Gestoppt von</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Erledigt</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Not complete</source>
        <translation>Unvollständig</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Weggelassen</translation>
    </message>
    <message>
        <source>%1 lines of output</source>
        <translation>%1 Zeilen der Ausgabe</translation>
    </message>
    <message>
        <source>Started</source>
        <translation>Gestartet</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>Beendet</translation>
    </message>
    <message>
        <source>Took</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Repeats</source>
        <translation>Wiederholt</translation>
    </message>
    <message>
        <source>run %1</source>
        <translation>Lauf %1</translation>
    </message>
    <message>
        <source>Without hosts</source>
        <translation>Ohne Hosts</translation>
    </message>
    <message>
        <source>%1 segments, %2 frequencies, %3 processes</source>
        <translation>%1 Segmente, %2 Frequenzen, %3 Prozesse</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Started in</source>
        <translation>Gestartet in</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>%1, %2, %3 with %4 cores</source>
        <translation>%1, %2, %3 mit %4 Kernen</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Installation</source>
        <translation>Installation</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Its copy</source>
        <translation>Seine Kopie</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>Last lines of the output</source>
        <translation>Letzte Zeilen der Ausgabe</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Übersicht</translation>
    </message>
</context>
<context>
    <name>TwoWayQuestion</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>UnreadableModel</name>
    <message>
        <source>There is no model that can be read at
%1.</source>
        <translation>Es gibt kein lesbares Modell unter
%1.</translation>
    </message>
    <message>
        <source>The model
%1
cannot be opened: %2.</source>
        <translation>Das Modell
%1
kann nicht geöffnet werden: %2.</translation>
    </message>
</context>
<context>
    <name>WelcomePanel</name>
    <message>
        <source>Open a model, or drop one on this window. Then press Run.</source>
        <translation>Öffnen Sie ein Modell, oder ziehen Sie eines auf dieses Fenster. Drücken Sie dann „Starten“.</translation>
    </message>
    <message>
        <source>Open a model...</source>
        <translation>Modell öffnen...</translation>
    </message>
    <message>
        <source>Try a sample</source>
        <translation>Beispiel ausprobieren</translation>
    </message>
    <message>
        <source>Copies a model of the installation for you to try</source>
        <translation>Kopiert ein Modell der Installation zum Ausprobieren</translation>
    </message>
    <message>
        <source>The installation has no samples</source>
        <translation>Die Installation hat keine Beispiele</translation>
    </message>
    <message>
        <source>The sample is not opened: %1</source>
        <translation>Das Beispiel wird nicht geöffnet: %1</translation>
    </message>
</context>
<context>
    <name>WindowQueue</name>
    <message>
        <source>The queue will not survive the end of kestdesk: %1</source>
        <translation>Die Warteschlange wird das Ende von kestdesk nicht überdauern: %1</translation>
    </message>
    <message>
        <source>Runs of an earlier session are held in the queue: %1</source>
        <translation>Läufe einer früheren Sitzung stehen zurückgestellt in der Warteschlange: %1</translation>
    </message>
    <message>
        <source>%1 waits: it is being run already, by %2</source>
        <translation>%1 wartet: es wird bereits gerechnet, von %2</translation>
    </message>
    <message>
        <source>Not all runs of an earlier session could be read; the damaged file of its queue is kept as %1</source>
        <translation>Nicht alle Läufe einer früheren Sitzung konnten gelesen werden; die beschädigte Datei ihrer Warteschlange bleibt als %1 erhalten</translation>
    </message>
</context>
<context>
    <name>WindowRun</name>
    <message>
        <source>not started</source>
        <translation>nicht gestartet</translation>
    </message>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>stopping, still running</source>
        <translation>wird gestoppt, läuft noch</translation>
    </message>
    <message>
        <source>Run not started</source>
        <translation>Lauf nicht gestartet</translation>
    </message>
    <message>
        <source>%1. It %2.</source>
        <translation>%1. Die Komponente %2.</translation>
    </message>
    <message>
        <source>The record of this run is not complete: %1.</source>
        <translation>Die Aufzeichnung dieses Laufs ist unvollständig: %1.</translation>
    </message>
</context>
<context>
    <name>WindowSession</name>
    <message>
        <source>The model of the last session does not answer: %1</source>
        <translation>Das Modell der letzten Sitzung antwortet nicht: %1</translation>
    </message>
    <message>
        <source>The model of the last session is gone: %1</source>
        <translation>Das Modell der letzten Sitzung ist nicht mehr da: %1</translation>
    </message>
</context>
</TS>
