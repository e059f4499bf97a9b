<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>AnchorGrid</name>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
</context>
<context>
    <name>AnglePicker</name>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Arrow keys move the marker, with Shift farther. Home makes it flat.</source>
        <translation>Die Pfeiltasten bewegen die Marke, mit Umschalt weiter. Pos1 macht sie flach.</translation>
    </message>
    <message>
        <source>discrete</source>
        <translation>einrasten</translation>
    </message>
    <message>
        <source>Snaps to 12 directions, 30 degrees apart, and a few slopes</source>
        <translation>Rastet in 12 Richtungen, alle 30 Grad, und in einigen Neigungen ein</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Flach</translation>
    </message>
    <message>
        <source>x %1  y %2</source>
        <translation>x %1  y %2</translation>
    </message>
</context>
<context>
    <name>Body</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Name in the list of sprites</source>
        <translation>Name in der Liste der Sprites</translation>
    </message>
</context>
<context>
    <name>BrushPanel</name>
    <message>
        <source>Brush contour %1</source>
        <translation>Pinselprofil %1</translation>
    </message>
    <message>
        <source>Brush size</source>
        <translation>Pinselgröße</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Hardness</source>
        <translation>Härte</translation>
    </message>
    <message>
        <source>Contour</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Pen pressure</source>
        <translation>Stiftdruck</translation>
    </message>
    <message>
        <source>[ ] or Ctrl + wheel | brush size</source>
        <translation>[ ] oder Strg + Mausrad | Pinselgröße</translation>
    </message>
    <message>
        <source>Shift and these | hardness</source>
        <translation>Umschalt und diese | Härte</translation>
    </message>
    <message>
        <source>1 to 9, 0 | opacity</source>
        <translation>1 bis 9, 0 | Deckkraft</translation>
    </message>
    <message>
        <source>Ctrl + Alt + right drag | size and hardness</source>
        <translation>Strg + Alt + rechts ziehen | Größe und Härte</translation>
    </message>
    <message>
        <source>Shift | straight line from the last stroke</source>
        <translation>Umschalt | gerade Linie vom letzten Strich aus</translation>
    </message>
    <message>
        <source>Esc | take the stroke back</source>
        <translation>Esc | Strich zurücknehmen</translation>
    </message>
</context>
<context>
    <name>ClonePropertyVisitor</name>
    <message>
        <source>cloning complete Projects is not allowed</source>
        <translation>ganze Projekte lassen sich nicht kopieren</translation>
    </message>
    <message>
        <source>cloning PropertyPresetCollections is not allowed</source>
        <translation>Sammlungen von Vorgaben lassen sich nicht kopieren</translation>
    </message>
    <message>
        <source>copy &apos;%1&apos;</source>
        <translation>„%1“ kopieren</translation>
    </message>
</context>
<context>
    <name>CrashLog</name>
    <message>
        <source>It used memory that it does not own.</source>
        <translation>Es griff auf Speicher zu, der ihm nicht gehört.</translation>
    </message>
    <message>
        <source>It stopped itself because something was not as it must be.</source>
        <translation>Es hielt sich selbst an, weil etwas nicht so war, wie es sein muss.</translation>
    </message>
    <message>
        <source>It came to a calculation that has no result.</source>
        <translation>Es kam zu einer Rechnung ohne Ergebnis.</translation>
    </message>
    <message>
        <source>It came to an instruction that this processor does not know.</source>
        <translation>Es kam zu einem Befehl, den dieser Prozessor nicht kennt.</translation>
    </message>
</context>
<context>
    <name>CrashReportDialog</name>
    <message>
        <source>Crash Report</source>
        <translation>Absturzbericht</translation>
    </message>
    <message>
        <source>%1 ended unexpectedly on %2. </source>
        <translation>%1 endete unerwartet am %2. </translation>
    </message>
    <message>
        <source>This report tells what the program did and where it was. It may hold the names of your files. It stays on this computer; nothing is sent. If you want the fault to be mended, add the report to what you write under Help &gt; Send feedback.</source>
        <translation>Dieser Bericht sagt, was das Programm tat und wo es war. Er kann Namen Ihrer Dateien enthalten. Er bleibt auf diesem Rechner; nichts wird gesendet. Damit sich der Fehler beheben lässt, den Bericht unter Hilfe &gt; Rückmeldung senden anfügen.</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Show Folder</source>
        <translation>Ordner zeigen</translation>
    </message>
</context>
<context>
    <name>DataModelReader</name>
    <message>
        <source>Failed to open file &apos;%1&apos;</source>
        <translation>Die Datei „%1“ lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>XML parser error: %1 (line %2)</source>
        <translation>XML-Fehler: %1 (Zeile %2)</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a Vesperine project file</source>
        <translation>„%1“ ist keine Vesperine-Projektdatei</translation>
    </message>
</context>
<context>
    <name>DataModelWriter</name>
    <message>
        <source>No filename set on project</source>
        <translation>Das Projekt hat keinen Dateinamen</translation>
    </message>
    <message>
        <source>File type of &apos;%1&apos; not supported</source>
        <translation>Der Dateityp von „%1“ wird nicht unterstützt</translation>
    </message>
    <message>
        <source>Failed to save &apos;%1&apos;: %2</source>
        <translation>„%1“ lässt sich nicht speichern: %2</translation>
    </message>
</context>
<context>
    <name>DirectionRow</name>
    <message>
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Tief</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
</context>
<context>
    <name>EditorOptions</name>
    <message>
        <source>Log what the program does</source>
        <translation>Protokollieren, was das Programm tut</translation>
    </message>
    <message>
        <source>Log what helps to find faults, too</source>
        <translation>Auch protokollieren, was bei der Fehlersuche hilft</translation>
    </message>
    <message>
        <source>Log everything</source>
        <translation>Alles protokollieren</translation>
    </message>
    <message>
        <source>Remove all stored settings, and end</source>
        <translation>Alle gespeicherten Einstellungen löschen und beenden</translation>
    </message>
    <message>
        <source>Show this help, and end</source>
        <translation>Diese Hilfe zeigen und beenden</translation>
    </message>
    <message>
        <source>Show the version, and end</source>
        <translation>Die Version zeigen und beenden</translation>
    </message>
</context>
<context>
    <name>EditorTools</name>
    <message>
        <source>View and sprites</source>
        <translation>Ansicht und Sprites</translation>
    </message>
    <message>
        <source>Move the light</source>
        <translation>Licht bewegen</translation>
    </message>
    <message>
        <source>Drag it</source>
        <translation>Ziehen</translation>
    </message>
    <message>
        <source>Place the light at the pointer</source>
        <translation>Licht an den Zeiger holen</translation>
    </message>
    <message>
        <source>P</source>
        <translation>P</translation>
    </message>
    <message>
        <source>Zoom around the pointer</source>
        <translation>Um den Zeiger zoomen</translation>
    </message>
    <message>
        <source>Alt or Space+Wheel</source>
        <translation>Alt oder Leertaste+Mausrad</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Ansicht verschieben</translation>
    </message>
    <message>
        <source>Space+Drag, middle button</source>
        <translation>Leertaste+Ziehen, mittlere Taste</translation>
    </message>
    <message>
        <source>Add a sprite to the selection</source>
        <translation>Sprite zur Auswahl hinzufügen</translation>
    </message>
    <message>
        <source>Ctrl or Shift+Click</source>
        <translation>Strg oder Umschalt+Klick</translation>
    </message>
    <message>
        <source>Select the sprites in a frame</source>
        <translation>Sprites in einem Rahmen auswählen</translation>
    </message>
    <message>
        <source>Drag beside sprites</source>
        <translation>Neben Sprites ziehen</translation>
    </message>
    <message>
        <source>Brushes</source>
        <translation>Pinsel</translation>
    </message>
    <message>
        <source>Brush size</source>
        <translation>Pinselgröße</translation>
    </message>
    <message>
        <source>[ ], Ctrl+Wheel</source>
        <translation>[ ], Strg+Mausrad</translation>
    </message>
    <message>
        <source>Hardness</source>
        <translation>Härte</translation>
    </message>
    <message>
        <source>Shift+[ ], Ctrl+Shift+Wheel</source>
        <translation>Umschalt+[ ], Strg+Umschalt+Mausrad</translation>
    </message>
    <message>
        <source>Size and hardness</source>
        <translation>Größe und Härte</translation>
    </message>
    <message>
        <source>Ctrl+Alt+Right drag</source>
        <translation>Strg+Alt+Rechts ziehen</translation>
    </message>
    <message>
        <source>Opacity, 10 to 90 %, 100 %</source>
        <translation>Deckkraft, 10 bis 90 %, 100 %</translation>
    </message>
    <message>
        <source>1 to 9, 0</source>
        <translation>1 bis 9, 0</translation>
    </message>
    <message>
        <source>Straight line from the last stroke</source>
        <translation>Gerade Linie vom letzten Strich aus</translation>
    </message>
    <message>
        <source>Shift+Click</source>
        <translation>Umschalt+Klick</translation>
    </message>
    <message>
        <source>Take the stroke back</source>
        <translation>Strich zurücknehmen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Height brush: up or down</source>
        <translation>Höhenpinsel: hoch oder tief</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Angle brush: pick an angle</source>
        <translation>Winkelpinsel: Winkel aufnehmen</translation>
    </message>
    <message>
        <source>Alt+Click</source>
        <translation>Alt+Klick</translation>
    </message>
    <message>
        <source>Size, opacity or height</source>
        <translation>Größe, Deckkraft oder Höhe</translation>
    </message>
    <message>
        <source>Pen pressure</source>
        <translation>Stiftdruck</translation>
    </message>
    <message>
        <source>Erase with any brush</source>
        <translation>Mit jedem Pinsel radieren</translation>
    </message>
    <message>
        <source>Eraser end of the pen</source>
        <translation>Radierende des Stifts</translation>
    </message>
    <message>
        <source>Selecting pixels</source>
        <translation>Pixel auswählen</translation>
    </message>
    <message>
        <source>Add to the selection</source>
        <translation>Zur Auswahl hinzufügen</translation>
    </message>
    <message>
        <source>Subtract from the selection</source>
        <translation>Von der Auswahl abziehen</translation>
    </message>
    <message>
        <source>Lasso: close</source>
        <translation>Lasso: schließen</translation>
    </message>
    <message>
        <source>Enter, double click</source>
        <translation>Eingabe, Doppelklick</translation>
    </message>
    <message>
        <source>Lasso: remove the last corner</source>
        <translation>Lasso: letzte Ecke entfernen</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Lasso: cancel</source>
        <translation>Lasso: abbrechen</translation>
    </message>
    <message>
        <source>Bevel and emboss</source>
        <translation>Kante und Prägen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>EffectRouting</name>
    <message>
        <source>Sprites left out, as their files are missing or have another size than their surfaces: %1</source>
        <translation>Ausgelassene Sprites, deren Datei fehlt oder eine andere Größe als ihre Oberfläche hat: %1</translation>
    </message>
</context>
<context>
    <name>ExportActions</name>
    <message>
        <source>&amp;Export normals</source>
        <translation>Normal-Maps &amp;exportieren</translation>
    </message>
    <message>
        <source>Export normals as...</source>
        <translation>Normal-Maps exportieren als...</translation>
    </message>
    <message>
        <source>Export &amp;lit sprite</source>
        <translation>Be&amp;leuchtetes Sprite exportieren</translation>
    </message>
    <message>
        <source>Export normal maps</source>
        <translation>Normal-Maps exportieren</translation>
    </message>
    <message>
        <source>Export normal maps...</source>
        <translation>Normal-Maps exportieren...</translation>
    </message>
    <message>
        <source>Export lit sprite</source>
        <translation>Beleuchtetes Sprite exportieren</translation>
    </message>
    <message>
        <source>Exporting normal maps</source>
        <translation>Normal-Maps werden exportiert</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 normal maps</source>
        <translation>
            <numerusform>%1 Normal-Map exportiert</numerusform>
            <numerusform>%1 Normal-Maps exportiert</numerusform>
        </translation>
    </message>
    <message>
        <source>to sprite directory</source>
        <translation>in den Ordner der Sprites</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>nach %1</translation>
    </message>
    <message>
        <source>Save lit sprite</source>
        <translation>Beleuchtetes Sprite speichern</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg *.jpeg)</source>
        <translation>Bilder (*.png *.jpg *.jpeg)</translation>
    </message>
    <message>
        <source>Export to &apos;</source>
        <translation>Der Export nach „</translation>
    </message>
    <message>
        <source>&apos; failed!</source>
        <translation>“ ist fehlgeschlagen!</translation>
    </message>
</context>
<context>
    <name>FeedbackAction</name>
    <message>
        <source>Send feedback...</source>
        <translation>Rückmeldung senden...</translation>
    </message>
</context>
<context>
    <name>FeedbackDialog</name>
    <message>
        <source>Send feedback</source>
        <translation>Rückmeldung senden</translation>
    </message>
    <message>
        <source>Your feedback</source>
        <translation>Ihre Rückmeldung</translation>
    </message>
    <message>
        <source>Add the system information</source>
        <translation>Systeminformationen anfügen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Feedback on %1 %2</source>
        <translation>Rückmeldung zu %1 %2</translation>
    </message>
    <message>
        <source>Add the report of the last crash</source>
        <translation>Bericht des letzten Absturzes anfügen</translation>
    </message>
    <message>
        <source>This goes along:</source>
        <translation>Das wird mitgesendet:</translation>
    </message>
    <message>
        <source>What goes along</source>
        <translation>Was mitgesendet wird</translation>
    </message>
    <message>
        <source>What works well, what is missing, what went wrong? Write it here. Nothing leaves this machine unless you send it.</source>
        <translation>Was klappt gut, was fehlt, was ging schief? Hier aufschreiben. Nichts verlässt diesen Rechner, bevor Sie es senden.</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Speichern...</translation>
    </message>
    <message>
        <source>Copy and write a mail</source>
        <translation>Kopieren und E-Mail schreiben</translation>
    </message>
    <message>
        <source>Write a mail</source>
        <translation>E-Mail schreiben</translation>
    </message>
    <message>
        <source>This is longer than what mail programs take over: it is copied, and you paste it into the mail.</source>
        <translation>Das ist länger, als E-Mail-Programme übernehmen: Es wird kopiert, in die E-Mail fügen Sie es ein.</translation>
    </message>
    <message>
        <source>(Paste here what was copied.)</source>
        <translation>(Hier das Kopierte einfügen.)</translation>
    </message>
    <message>
        <source>It is copied. Paste it into the mail.</source>
        <translation>Es ist kopiert. Bitte in die E-Mail einfügen.</translation>
    </message>
    <message>
        <source>Your mail program has it. Send it from there.</source>
        <translation>Ihr E-Mail-Programm hat es. Bitte dort absenden.</translation>
    </message>
    <message>
        <source>No mail program could be opened. Copy the text and send it to %1.</source>
        <translation>Es ließ sich kein E-Mail-Programm öffnen. Den Text kopieren und an %1 senden.</translation>
    </message>
    <message>
        <source>It is copied.</source>
        <translation>Es ist kopiert.</translation>
    </message>
    <message>
        <source>Save feedback</source>
        <translation>Rückmeldung speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation>Textdateien (*.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>It is saved as %1.</source>
        <translation>Gespeichert als %1.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written: %2</source>
        <translation>%1 lässt sich nicht schreiben: %2</translation>
    </message>
</context>
<context>
    <name>Filter</name>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
</context>
<context>
    <name>FilterCreateRim</name>
    <message>
        <source>Bevel...</source>
        <translation>Kante abschrägen...</translation>
    </message>
    <message>
        <source>Bevel</source>
        <translation>Kante</translation>
    </message>
    <message>
        <source>create rim</source>
        <translation>Kante abschrägen</translation>
    </message>
    <message>
        <source>Rounds the surface along the border to transparency.</source>
        <translation>Rundet die Oberfläche am Rand zur Transparenz ab.</translation>
    </message>
    <message>
        <source>Create bevel</source>
        <translation>Kante abschrägen</translation>
    </message>
    <message>
        <source>Bevel width</source>
        <translation>Kantenbreite</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>Bevel height</source>
        <translation>Kantenhöhe</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Smoothness</source>
        <translation>Glättung</translation>
    </message>
    <message>
        <source>Tile mode</source>
        <translation>Kachelmodus</translation>
    </message>
    <message>
        <source>Effect is only applied on border pixels
adjacent to transparency.

Areas which are in contact with
the sprite bounding rectangle
remain unchanged.</source>
        <translation>Wirkt nur auf Randpixel,
die an Transparenz grenzen.

Was den äußeren Rahmen
des Sprites berührt,
bleibt unverändert.</translation>
    </message>
</context>
<context>
    <name>FilterEmboss</name>
    <message>
        <source>Emboss...</source>
        <translation>Prägen...</translation>
    </message>
    <message>
        <source>Emboss</source>
        <translation>Prägen</translation>
    </message>
    <message>
        <source>create embossing</source>
        <translation>Prägung anlegen</translation>
    </message>
    <message>
        <source>Raises the surface where the sprite is bright.</source>
        <translation>Hebt die Oberfläche, wo das Sprite hell ist.</translation>
    </message>
    <message>
        <source>Emboss height</source>
        <translation>Prägehöhe</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>Smoothness</source>
        <translation>Glättung</translation>
    </message>
</context>
<context>
    <name>GColorButton</name>
    <message>
        <source>%1, alpha %2 %</source>
        <translation>%1, Alpha %2 %</translation>
    </message>
</context>
<context>
    <name>GLGraphicsLight</name>
    <message>
        <source>Drag the light, or press P to bring it here</source>
        <translation>Licht ziehen oder mit P hierherholen</translation>
    </message>
</context>
<context>
    <name>GLSpriteShader</name>
    <message>
        <source>Failed to compile vertex shader: %1</source>
        <translation>Der Vertex-Shader lässt sich nicht übersetzen: %1</translation>
    </message>
    <message>
        <source>Failed to compile fragment shader: %1</source>
        <translation>Der Fragment-Shader lässt sich nicht übersetzen: %1</translation>
    </message>
    <message>
        <source>Failed to link shader: %1</source>
        <translation>Der Shader lässt sich nicht binden: %1</translation>
    </message>
    <message>
        <source>Failed to bind shader: %1</source>
        <translation>Der Shader lässt sich nicht verwenden: %1</translation>
    </message>
</context>
<context>
    <name>GMainWindow</name>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Manual</source>
        <translation>&amp;Handbuch</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save changes?</source>
        <translation>Änderungen speichern?</translation>
    </message>
    <message>
        <source>Save the changes to %1?</source>
        <translation>Sollen die Änderungen an %1 gespeichert werden?</translation>
    </message>
    <message>
        <source>Without saving they are lost.</source>
        <translation>Sonst gehen sie verloren.</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>Mi&amp;nimise</source>
        <translation>Mi&amp;nimieren</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Keyboard &amp;Shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>System &amp;Information</source>
        <translation>System&amp;informationen</translation>
    </message>
    <message>
        <source>&amp;About %1</source>
        <translation>&amp;Über %1</translation>
    </message>
    <message>
        <source>%1 (read-only)</source>
        <translation>%1 (schreibgeschützt)</translation>
    </message>
    <message>
        <source>%1 copy</source>
        <translation>%1 Kopie</translation>
    </message>
</context>
<context>
    <name>GPathEdit</name>
    <message>
        <source>Choose folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>Choose file</source>
        <translation>Datei wählen</translation>
    </message>
    <message>
        <source>Choose %1</source>
        <translation>%1 wählen</translation>
    </message>
</context>
<context>
    <name>GProject</name>
    <message>
        <source>preset collection of type &apos;%1&apos; does not exist</source>
        <translation>Vorgaben der Art „%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>preset collection of type &apos;%1&apos; already exists</source>
        <translation>Vorgaben der Art „%1“ gibt es schon</translation>
    </message>
</context>
<context>
    <name>GraphicsCheck</name>
    <message>
        <source>Installed OpenGL has no shader support!</source>
        <translation>Das installierte OpenGL kennt keine Shader!</translation>
    </message>
    <message>
        <source>Installed OpenGL has no multi-texturing support!</source>
        <translation>Das installierte OpenGL kann nicht mehrere Texturen zugleich verwenden!</translation>
    </message>
    <message>
        <source>No OpenGL context</source>
        <translation>Kein OpenGL-Kontext</translation>
    </message>
    <message>
        <source>Vendor: %1</source>
        <translation>Hersteller: %1</translation>
    </message>
    <message>
        <source>Renderer: %1</source>
        <translation>Renderer: %1</translation>
    </message>
    <message>
        <source>OpenGL: %1</source>
        <translation>OpenGL: %1</translation>
    </message>
    <message>
        <source>Shading language: %1</source>
        <translation>Shader-Sprache: %1</translation>
    </message>
    <message>
        <source>Largest texture: %1 pixels</source>
        <translation>Größte Textur: %1 Pixel</translation>
    </message>
</context>
<context>
    <name>ImportNormalMap</name>
    <message>
        <source>Import normal map...</source>
        <translation>Normal-Map importieren...</translation>
    </message>
    <message>
        <source>Failed to load %1</source>
        <translation>%1 lässt sich nicht laden</translation>
    </message>
    <message>
        <source>Normal map has wrong size!</source>
        <translation>Die Normal-Map hat die falsche Größe!</translation>
    </message>
    <message>
        <source>Import normal map</source>
        <translation>Normal-Map importieren</translation>
    </message>
    <message>
        <source>Select normal map image to import</source>
        <translation>Normal-Map zum Importieren wählen</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg)</source>
        <translation>Bilder (*.png *.jpg)</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Something about &apos;%1&apos; is unusual:</source>
        <translation>An „%1“ ist etwas ungewöhnlich:</translation>
    </message>
    <message>
        <source>Flip green and import</source>
        <translation>Grün umkehren und importieren</translation>
    </message>
    <message>
        <source>Import as it is</source>
        <translation>Unverändert importieren</translation>
    </message>
    <message>
        <source>It does not look like a normal map: many pixels have too little blue. Make sure that it is the right file.</source>
        <translation>Das sieht nicht nach einer Normal-Map aus: Viele Pixel haben zu wenig Blau. Ist es die richtige Datei? Bitte prüfen.</translation>
    </message>
    <message>
        <source>Green seems to count downwards, so that light from above would seem to come from below. Flipping green puts that right.</source>
        <translation>Grün zählt anscheinend nach unten, sodass Licht von oben wie von unten aussähe. Grün umzukehren bringt das in Ordnung.</translation>
    </message>
    <message>
        <source>Its flat ground is 128, 128, 255 instead of 127, 127, 255 and will lean by half a degree, which is hardly seen. The eraser makes it quite flat.</source>
        <translation>Ihr flacher Grund ist 128, 128, 255 statt 127, 127, 255 und neigt sich um ein halbes Grad, was man kaum sieht. Der Radierer macht ihn ganz flach.</translation>
    </message>
</context>
<context>
    <name>ImportNormalMaps</name>
    <message>
        <source>Import normal maps from folder...</source>
        <translation>Normal-Maps aus Ordner importieren...</translation>
    </message>
    <message>
        <source>Select folder of normal maps to import</source>
        <translation>Ordner mit Normal-Maps wählen</translation>
    </message>
    <message>
        <source>Import normal maps</source>
        <translation>Normal-Maps importieren</translation>
    </message>
    <message>
        <source>Import normal map</source>
        <translation>Normal-Map importieren</translation>
    </message>
    <message>
        <source>%1: it has neither a sprite nor a surface, so no size is known. Give it its sprite first.</source>
        <translation>%1: Ohne Sprite und Oberfläche ist keine Größe bekannt. Zuerst das Sprite zuweisen.</translation>
    </message>
    <message>
        <source>%1: it has no sprite by whose name a map could be found. Use &apos;Import normal map...&apos; for it.</source>
        <translation>%1: Es gibt kein Sprite, nach dessen Namen sich eine Map suchen ließe. Dafür ist „Normal-Map importieren...“ da.</translation>
    </message>
    <message>
        <source>%1: there is no &apos;%2&apos; in the folder. Check the folder and the normal map suffix of the project.</source>
        <translation>%1: Im Ordner gibt es kein „%2“. Ordner und Normal-Map-Endung des Projekts prüfen.</translation>
    </message>
    <message>
        <source>%1: it can&apos;t be read as an image. Save it anew as PNG or JPEG.</source>
        <translation>%1: Die Datei ist nicht als Bild lesbar. Neu als PNG oder JPEG speichern.</translation>
    </message>
    <message>
        <source>%1: it has %2 pixels, but &apos;%3&apos; has %4. Bring the map to that size.</source>
        <translation>%1: Die Map hat %2 Pixel, „%3“ aber %4. Die Map auf diese Größe bringen.</translation>
    </message>
    <message>
        <source>In these normal maps green seems to count downwards, so that light from above would seem to come from below:</source>
        <translation>In diesen Normal-Maps zählt Grün anscheinend nach unten, sodass Licht von oben wie von unten aussähe:</translation>
    </message>
    <message>
        <source>Flip green and import</source>
        <translation>Grün umkehren und importieren</translation>
    </message>
    <message>
        <source>Import as they are</source>
        <translation>Unverändert importieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 of %2 normal maps have been imported. This is worth knowing:</source>
        <translation>%1 von %2 Normal-Maps sind importiert. Gut zu wissen:</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
</context>
<context>
    <name>ItemSelectionModel</name>
    <message>
        <source>selection changed</source>
        <translation>Auswahl geändert</translation>
    </message>
</context>
<context>
    <name>LanguageChoice</name>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>&lt;b&gt;Language:&lt;/b&gt;</source>
        <translation>&lt;b&gt;Sprache:&lt;/b&gt;</translation>
    </message>
    <message>
        <source>From the next start on</source>
        <translation>Ab dem nächsten Start</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Vesperine projects (*.vep *.vex)</source>
        <translation>Vesperine-Projekte (*.vep *.vex)</translation>
    </message>
    <message>
        <source>Vesperine projects (*.vep)</source>
        <translation>Vesperine-Projekte (*.vep)</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>Gives flat sprites a surface that a game can light.</source>
        <translation>Gibt flachen Sprites eine Oberfläche, die ein Spiel beleuchten kann.</translation>
    </message>
    <message>
        <source>MIT licence. Made with Qt, OpenCV and OpenGL.</source>
        <translation>MIT-Lizenz. Erstellt mit Qt, OpenCV und OpenGL.</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Draw</source>
        <translation>&amp;Zeichnen</translation>
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
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>File format change</source>
        <translation>Anderes Dateiformat</translation>
    </message>
    <message>
        <source>&apos;.vex&apos; file format is no longer supported, please use &apos;.vep&apos; instead</source>
        <translation>Das Dateiformat „.vex“ wird nicht mehr unterstützt, bitte „.vep“ verwenden</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Answer the open question first.</source>
        <translation>Zuerst die offene Frage beantworten.</translation>
    </message>
    <message>
        <source>Apply or discard the effect first.</source>
        <translation>Zuerst den Effekt anwenden oder verwerfen.</translation>
    </message>
    <message>
        <source>Fitting surfaces</source>
        <translation>Oberflächen werden angepasst</translation>
    </message>
    <message>
        <source>This work was recovered. Without saving, the next start offers it for the last time.</source>
        <translation>Diese Arbeit wurde wiederhergestellt. Ohne Speichern bietet sie der nächste Start zum letzten Mal an.</translation>
    </message>
    <message>
        <source>Saved without a lock: open the project in one program only.</source>
        <translation>Ohne Sperre gespeichert: das Projekt nur in einem Programm öffnen.</translation>
    </message>
    <message>
        <source>Saved without the open effect. Apply it and save again to keep it.</source>
        <translation>Ohne den offenen Effekt gespeichert. Wenden Sie ihn an und speichern Sie noch einmal, um ihn zu behalten.</translation>
    </message>
</context>
<context>
    <name>ManualDialog</name>
    <message>
        <source>Manual</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Search, Enter goes on</source>
        <translation>Suchen, Eingabe sucht weiter</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>MissingDisplay</name>
    <message>
        <source>nothing answers at %1</source>
        <translation>unter %1 antwortet nichts</translation>
    </message>
    <message>
        <source>DISPLAY is not set</source>
        <translation>DISPLAY ist nicht gesetzt</translation>
    </message>
    <message>
        <source>the display &quot;%1&quot; does not answer</source>
        <translation>die Anzeige „%1“ antwortet nicht</translation>
    </message>
    <message>
        <source>There is no display to open a window on (%1).</source>
        <translation>Es gibt keine Anzeige, um ein Fenster zu öffnen (%1).</translation>
    </message>
</context>
<context>
    <name>NormalMapEditor</name>
    <message>
        <source>Deselect </source>
        <translation>Auswahl aufheben </translation>
    </message>
    <message>
        <source>Invert selection</source>
        <translation>Auswahl umkehren</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
</context>
<context>
    <name>NormalMapEditorScene</name>
    <message>
        <source>&quot;%1&quot; is larger than the %2 pixels that this graphics driver can show, and is shown from a smaller copy. Its normal map keeps the full size.</source>
        <translation>„%1“ ist größer als die %2 Pixel, die dieser Grafiktreiber zeigen kann, und wird aus einer kleineren Kopie gezeigt. Die Normal-Map behält die volle Größe.</translation>
    </message>
</context>
<context>
    <name>NormalMapExport</name>
    <message>
        <source>Cannot create directory &apos;%1&apos;</source>
        <translation>Der Ordner „%1“ lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>Failed to save normal map &apos;%1&apos;</source>
        <translation>Die Normal-Map „%1“ lässt sich nicht speichern</translation>
    </message>
    <message>
        <source>it is a sprite or another map by another name</source>
        <translation>sie ist unter anderem Namen ein Sprite oder eine andere Karte</translation>
    </message>
    <message>
        <source>the file that is there was not written by this program</source>
        <translation>die Datei an dieser Stelle stammt nicht von diesem Programm</translation>
    </message>
</context>
<context>
    <name>PaintToolAngleBrush</name>
    <message>
        <source>Angle brush</source>
        <translation>Winkelpinsel</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Turns the surface to one direction where you paint.</source>
        <translation>Neigt die Oberfläche beim Malen in eine Richtung.</translation>
    </message>
    <message>
        <source>Pick from image</source>
        <translation>Aus dem Bild aufnehmen</translation>
    </message>
    <message>
        <source>The next click in the view takes the angle there, as Alt and a click do</source>
        <translation>Der nächste Klick in die Ansicht nimmt den Winkel von dort auf, wie Alt und ein Klick</translation>
    </message>
    <message>
        <source>Fill all</source>
        <translation>Alles füllen</translation>
    </message>
    <message>
        <source>
hold Alt | pick angle from image</source>
        <translation>
Alt halten | Winkel aus dem Bild aufnehmen</translation>
    </message>
    <message>
        <source>Fill selection</source>
        <translation>Auswahl füllen</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>Füllen</translation>
    </message>
</context>
<context>
    <name>PaintToolBlurBrush</name>
    <message>
        <source>Smoothness brush</source>
        <translation>Glättungspinsel</translation>
    </message>
    <message>
        <source>Smoothen</source>
        <translation>Glätten</translation>
    </message>
    <message>
        <source>Smoothens the surface where you paint.</source>
        <translation>Glättet die Oberfläche beim Malen.</translation>
    </message>
    <message>
        <source>Smoothness</source>
        <translation>Glättung</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>Smoothen all</source>
        <translation>Alles glätten</translation>
    </message>
    <message>
        <source>Smoothen selection</source>
        <translation>Auswahl glätten</translation>
    </message>
    <message>
        <source>Blur all</source>
        <translation>Alles glätten</translation>
    </message>
</context>
<context>
    <name>PaintToolBrushBased</name>
    <message>
        <source>Erase</source>
        <translation>Radieren</translation>
    </message>
</context>
<context>
    <name>PaintToolEraser</name>
    <message>
        <source>Eraser Tool</source>
        <translation>Radierer</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Radieren</translation>
    </message>
    <message>
        <source>Erase all</source>
        <translation>Alles radieren</translation>
    </message>
    <message>
        <source>Flattens the surface where you paint.</source>
        <translation>Macht die Oberfläche beim Malen flach.</translation>
    </message>
    <message>
        <source>Erase selection</source>
        <translation>Auswahl radieren</translation>
    </message>
</context>
<context>
    <name>PaintToolHeightBrush</name>
    <message>
        <source>Height brush</source>
        <translation>Höhenpinsel</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Raises or lowers the surface where you paint.</source>
        <translation>Hebt oder senkt die Oberfläche beim Malen.</translation>
    </message>
    <message>
        <source>
X | toggle up/down</source>
        <translation>
X | hoch/tief umschalten</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Tief</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
</context>
<context>
    <name>PaintToolMove</name>
    <message>
        <source>Move sprites</source>
        <translation>Sprites verschieben</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Bewegen</translation>
    </message>
    <message>
        <source>Drag sprites to arrange them in the view.</source>
        <translation>Sprites ziehen, um sie in der Ansicht anzuordnen.</translation>
    </message>
</context>
<context>
    <name>PaintToolSelect</name>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Subtract</source>
        <translation>Abziehen</translation>
    </message>
    <message>
        <source>What you select takes the place of the selection</source>
        <translation>Was Sie auswählen, tritt an die Stelle der Auswahl</translation>
    </message>
    <message>
        <source>Adds to the selection, as Shift does</source>
        <translation>Fügt zur Auswahl hinzu, wie die Umschalttaste</translation>
    </message>
    <message>
        <source>Takes away from the selection, as Alt does</source>
        <translation>Zieht von der Auswahl ab, wie die Alt-Taste</translation>
    </message>
    <message>
        <source>pixel selection changed</source>
        <translation>Pixelauswahl geändert</translation>
    </message>
    <message>
        <source>pixel selection cleared</source>
        <translation>Pixelauswahl aufgehoben</translation>
    </message>
</context>
<context>
    <name>PaintToolSelectByColor</name>
    <message>
        <source>Select by color</source>
        <translation>Nach Farbe auswählen</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Selects the color that you click, as far as it reaches.</source>
        <translation>Wählt die angeklickte Farbe aus, so weit sie reicht.</translation>
    </message>
    <message>
        <source>Tolerance</source>
        <translation>Toleranz</translation>
    </message>
    <message>
        <source>
click or drag | select the color there
Shift | add to the selection
Alt | subtract from the selection
click outside | clear the selection</source>
        <translation>
Klicken oder ziehen | Farbe dort auswählen
Umschalt | zur Auswahl hinzufügen
Alt | von der Auswahl abziehen
Daneben klicken | Auswahl aufheben</translation>
    </message>
</context>
<context>
    <name>PaintToolSelectWithPolygon</name>
    <message>
        <source>Polygonal lasso</source>
        <translation>Polygon-Lasso</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>Polygon</translation>
    </message>
    <message>
        <source>Selects what is inside of a polygon that you click.</source>
        <translation>Wählt aus, was in einem geklickten Polygon liegt.</translation>
    </message>
    <message>
        <source>
click | add a corner, or close on the first
double click or Enter | close
Backspace | remove the last corner
Esc | cancel
begin with Shift | add to the selection
begin with Alt | subtract from the selection</source>
        <translation>
Klicken | Ecke setzen, auf der ersten schließen
Doppelklick oder Eingabe | schließen
Rücktaste | letzte Ecke entfernen
Esc | abbrechen
Mit Umschalt beginnen | zur Auswahl hinzufügen
Mit Alt beginnen | von der Auswahl abziehen</translation>
    </message>
    <message>
        <source>Remove last corner</source>
        <translation>Letzte Ecke entfernen</translation>
    </message>
</context>
<context>
    <name>PaintToolStructure</name>
    <message>
        <source>Structure brush</source>
        <translation>Strukturpinsel</translation>
    </message>
    <message>
        <source>Structure</source>
        <translation>Struktur</translation>
    </message>
    <message>
        <source>Adds the relief of a pattern where you paint.</source>
        <translation>Trägt beim Malen das Relief eines Musters auf.</translation>
    </message>
    <message>
        <source>Add structure</source>
        <translation>Struktur auftragen</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>&lt;p&gt;Open &lt;a href=&apos;ve://preferences&apos; style=&apos;color: #8080ff&apos;&gt; Preferences&lt;/a&gt; to add your own patterns</source>
        <translation>&lt;p&gt;Eigene Muster lassen sich in den &lt;a href=&apos;ve://preferences&apos; style=&apos;color: #8080ff&apos;&gt; Einstellungen&lt;/a&gt; hinzufügen</translation>
    </message>
    <message>
        <source>Open Preferences to add your own patterns</source>
        <translation>Eigene Muster lassen sich in den Einstellungen hinzufügen</translation>
    </message>
</context>
<context>
    <name>PatternBox</name>
    <message>
        <source>Comes with the program</source>
        <translation>Gehört zum Programm</translation>
    </message>
</context>
<context>
    <name>PatternReading</name>
    <message>
        <source>This pattern can&apos;t be read: %1.</source>
        <translation>Dieses Muster ist nicht lesbar: %1.</translation>
    </message>
    <message>
        <source>This pattern is larger than %1 pixels a side.</source>
        <translation>Dieses Muster ist länger oder breiter als %1 Pixel.</translation>
    </message>
</context>
<context>
    <name>Patterns</name>
    <message>
        <source>bark</source>
        <translation>Rinde</translation>
    </message>
    <message>
        <source>brick</source>
        <translation>Ziegel</translation>
    </message>
    <message>
        <source>chain-mail</source>
        <translation>Kettenhemd</translation>
    </message>
    <message>
        <source>hammered-metal</source>
        <translation>Hammerschlag</translation>
    </message>
    <message>
        <source>hexagons</source>
        <translation>Sechsecke</translation>
    </message>
    <message>
        <source>leather</source>
        <translation>Leder</translation>
    </message>
    <message>
        <source>sand</source>
        <translation>Sand</translation>
    </message>
    <message>
        <source>scales</source>
        <translation>Schuppen</translation>
    </message>
    <message>
        <source>scratches</source>
        <translation>Kratzer</translation>
    </message>
    <message>
        <source>stone</source>
        <translation>Stein</translation>
    </message>
    <message>
        <source>wood-grain</source>
        <translation>Holzmaserung</translation>
    </message>
    <message>
        <source>woven-cloth</source>
        <translation>Gewebe</translation>
    </message>
</context>
<context>
    <name>PixelSelectionModel</name>
    <message>
        <source>clear pixel selection</source>
        <translation>Pixelauswahl aufheben</translation>
    </message>
    <message>
        <source>select all pixels</source>
        <translation>alle Pixel auswählen</translation>
    </message>
    <message>
        <source>invert pixel selection</source>
        <translation>Pixelauswahl umkehren</translation>
    </message>
</context>
<context>
    <name>PointedPixelLabel</name>
    <message>
        <source>   x %1  y %2   slope %3, %4   normal %5 %6 %7</source>
        <translation>   x %1  y %2   Neigung %3; %4   Normale %5 %6 %7</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Custom pattern directory:</source>
        <translation>Ordner mit eigenen Mustern:</translation>
    </message>
    <message>
        <source>Custom pattern directory</source>
        <translation>Ordner mit eigenen Mustern</translation>
    </message>
    <message>
        <source>The &quot;Structure&quot; tool loads its pattern images from this directory. You have to re-open your VE project after changing the directory or updating its content</source>
        <translation>Das Werkzeug „Struktur“ lädt seine Muster aus diesem Ordner. Nach einem Wechsel des Ordners oder neuen Mustern darin ist das Projekt neu zu öffnen</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>&lt;b&gt;Appearance:&lt;/b&gt;</source>
        <translation>&lt;b&gt;Aussehen:&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>&lt;b&gt;Custom pattern directory:&lt;/b&gt;</source>
        <translation>&lt;b&gt;Ordner mit eigenen Mustern:&lt;/b&gt;</translation>
    </message>
</context>
<context>
    <name>PreviewedFilter</name>
    <message>
        <source>Computing the preview</source>
        <translation>Die Vorschau wird berechnet</translation>
    </message>
</context>
<context>
    <name>Project</name>
    <message>
        <source>Output directory</source>
        <translation>Zielordner</translation>
    </message>
    <message>
        <source>Normal map suffix</source>
        <translation>Namensendung der Normal-Maps</translation>
    </message>
    <message>
        <source>Z position</source>
        <translation>Z-Position</translation>
    </message>
    <message>
        <source>Light height in pixels</source>
        <translation>Höhe des Lichts in Pixeln</translation>
    </message>
    <message>
        <source>px</source>
        <translation>px</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Light brightness</source>
        <translation>Helligkeit des Lichts</translation>
    </message>
    <message>
        <source>Light color</source>
        <translation>Lichtfarbe</translation>
    </message>
    <message>
        <source>Ambient light</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>Ambient light color</source>
        <translation>Farbe des Umgebungslichts</translation>
    </message>
    <message>
        <source>&apos;%1&apos; counts from the folder of the project, which is not saved yet. Save the project first, or give the whole path.</source>
        <translation>„%1“ zählt vom Ordner des Projekts an, das noch nicht gespeichert ist. Speichern Sie zuerst das Projekt, oder geben Sie den ganzen Pfad an.</translation>
    </message>
</context>
<context>
    <name>ProjectArchive</name>
    <message>
        <source>the name of an entry can&apos;t be stored</source>
        <translation>der Name eines Eintrags lässt sich nicht speichern</translation>
    </message>
    <message>
        <source>two entries have the same name</source>
        <translation>zwei Einträge haben denselben Namen</translation>
    </message>
    <message>
        <source>an archive holds at most 65535 entries</source>
        <translation>ein Archiv fasst höchstens 65535 Einträge</translation>
    </message>
    <message>
        <source>an archive holds at most 4 GiB</source>
        <translation>ein Archiv fasst höchstens 4 GiB</translation>
    </message>
    <message>
        <source>the archive could not be written completely</source>
        <translation>das Archiv ließ sich nicht vollständig schreiben</translation>
    </message>
</context>
<context>
    <name>ProjectBundle</name>
    <message>
        <source>Data file &apos;%1&apos; already exists in bundle &apos;%2&apos;</source>
        <translation>Die Datendatei „%1“ gibt es in „%2“ schon</translation>
    </message>
    <message>
        <source>File type of &apos;%1&apos; not supported</source>
        <translation>Der Dateityp von „%1“ wird nicht unterstützt</translation>
    </message>
    <message>
        <source>Failed to load &apos;%1&apos;</source>
        <translation>„%1“ lässt sich nicht laden</translation>
    </message>
    <message>
        <source>Project file &apos;%1&apos; not found in &apos;%2&apos;</source>
        <translation>Die Projektdatei „%1“ fehlt in „%2“</translation>
    </message>
    <message>
        <source>File location &apos;%1&apos; not writable</source>
        <translation>Unter „%1“ lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>Failed to save &apos;%1&apos;: %2</source>
        <translation>„%1“ lässt sich nicht speichern: %2</translation>
    </message>
    <message>
        <source>Failed to load &apos;%1&apos;: its surfaces take %2 MiB, more than the 8192 that a project may have. Go back to an older copy of it.</source>
        <translation>„%1“ lässt sich nicht laden: Die Oberflächen brauchen %2 MiB, mehr als die 8192, die ein Projekt haben darf. Es hilft nur eine ältere Kopie.</translation>
    </message>
    <message>
        <source>Failed to load &apos;%1&apos;: its surfaces need %2 MiB of memory, %3 are free. Close other programs, or open it on a machine with more memory.</source>
        <translation>„%1“ lässt sich nicht laden: Die Oberflächen brauchen %2 MiB Speicher, %3 sind frei. Es hilft, andere Programme zu schließen oder einen Rechner mit mehr Speicher zu nehmen.</translation>
    </message>
    <message>
        <source>Failed to save &apos;%1&apos;: its surfaces take %2 MiB, more than the 8192 that a project may have. Remove sprites, and give them a project of their own.</source>
        <translation>„%1“ lässt sich nicht speichern: Die Oberflächen brauchen %2 MiB, mehr als die 8192, die ein Projekt haben darf. Es hilft, Sprites zu entfernen und ihnen ein eigenes Projekt zu geben.</translation>
    </message>
</context>
<context>
    <name>ProjectController</name>
    <message>
        <source>The painted surfaces of these bodies are damaged, they count as not painted: %1</source>
        <translation>Die gemalten Oberflächen dieser Sprites sind beschädigt, sie gelten als nicht bemalt: %1</translation>
    </message>
    <message>
        <source>The painted surfaces of these bodies have a side of 0 pixels, they count as not painted: %1</source>
        <translation>Die gemalten Oberflächen dieser Sprites haben eine Seite von 0 Pixeln, sie gelten als nicht bemalt: %1</translation>
    </message>
    <message>
        <source>Skipped &apos;%1&apos;: it is the normal map of another sprite</source>
        <translation>„%1“ ausgelassen: Das ist die Normal-Map eines anderen Sprites</translation>
    </message>
    <message>
        <source>add bodies</source>
        <translation>Sprites hinzufügen</translation>
    </message>
    <message>
        <source>init normalmap</source>
        <translation>Normal-Map anlegen</translation>
    </message>
    <message>
        <source>add body</source>
        <translation>Sprite hinzufügen</translation>
    </message>
    <message>
        <source>Failed to add following files:

</source>
        <translation>Diese Dateien ließen sich nicht hinzufügen:

</translation>
    </message>
    <message>
        <source>remove bodies</source>
        <translation>Sprites entfernen</translation>
    </message>
    <message>
        <source>remove body</source>
        <translation>Sprite entfernen</translation>
    </message>
    <message>
        <source>Removed sprite: </source>
        <translation>Entferntes Sprite: </translation>
    </message>
    <message>
        <source>&apos;%1&apos; stays in the project: its file &apos;%2&apos; is there and can&apos;t be read: %3</source>
        <translation>„%1“ bleibt im Projekt: Die Datei „%2“ ist da, aber nicht lesbar: %3</translation>
    </message>
    <message>
        <source>update file paths</source>
        <translation>Dateipfade anpassen</translation>
    </message>
    <message>
        <source>Updated file path:</source>
        <translation>Angepasster Dateipfad:</translation>
    </message>
    <message>
        <source>update file path</source>
        <translation>Dateipfad anpassen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; was changed by another program since it was opened. Save under another name, or open it again.</source>
        <translation>„%1“ wurde seit dem Öffnen von einem anderen Programm geändert. Bitte unter anderem Namen speichern oder neu öffnen.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is open in %2. Save under another name.</source>
        <translation>„%1“ ist offen in %2. Bitte unter anderem Namen speichern.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is a sprite of the project or the project itself and stays as it is: choose another name</source>
        <translation>„%1“ ist ein Sprite des Projekts oder das Projekt selbst und bleibt, wie es ist: bitte einen anderen Namen wählen</translation>
    </message>
</context>
<context>
    <name>ProjectLock</name>
    <message>
        <source>another program</source>
        <translation>einem anderen Programm</translation>
    </message>
    <message>
        <source>%1 (process %2) on %3</source>
        <translation>%1 (Prozess %2) auf %3</translation>
    </message>
    <message>
        <source>%1 (process %2) of %4 on %3</source>
        <translation>%1 (Prozess %2) von %4 auf %3</translation>
    </message>
    <message>
        <source>%1. If it no longer runs there, remove &apos;%2&apos;</source>
        <translation>%1. Läuft es dort nicht mehr, dann „%2“ entfernen</translation>
    </message>
    <message>
        <source>%1 (lock file &apos;%2&apos;)</source>
        <translation>%1 (Sperrdatei „%2“)</translation>
    </message>
</context>
<context>
    <name>ProjectRecovery</name>
    <message>
        <source>Unsaved work can&apos;t be kept for recovery: %1. Better save now.</source>
        <translation>Ungespeicherte Arbeit lässt sich nicht sichern: %1. Jetzt besser speichern.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>%1

The snapshot is kept in &apos;%2&apos;.</source>
        <translation>%1

Die Sicherung bleibt in „%2“.</translation>
    </message>
</context>
<context>
    <name>Property</name>
    <message>
        <source>requested property &apos;%1&apos; has wrong type</source>
        <translation>die Eigenschaft „%1“ hat eine andere Art</translation>
    </message>
</context>
<context>
    <name>PropertyEnum</name>
    <message>
        <source>%1 (%2) is not an element of enum %3</source>
        <translation>%1 (%2) gehört nicht zu %3</translation>
    </message>
</context>
<context>
    <name>PropertyList</name>
    <message>
        <source>cannot add &apos;%1&apos; to list &apos;%2&apos;, wrong type</source>
        <translation>„%1“ passt nicht in die Liste „%2“</translation>
    </message>
    <message>
        <source>property &apos;%1&apos; in list &apos;%2&apos; has wrong type&apos;</source>
        <translation>die Eigenschaft „%1“ in der Liste „%2“ hat eine andere Art</translation>
    </message>
</context>
<context>
    <name>PropertyReference</name>
    <message>
        <source>reference property may not be set to NULL</source>
        <translation>ein Verweis darf nicht leer sein</translation>
    </message>
    <message>
        <source>cannot assign type &apos;%1&apos; to reference property of type &apos;%2&apos;</source>
        <translation>„%1“ passt nicht zu einem Verweis auf „%2“</translation>
    </message>
</context>
<context>
    <name>PropertyStruct</name>
    <message>
        <source>property &apos;%1&apos; already exists in struct &apos;%2&apos;</source>
        <translation>die Eigenschaft „%1“ gibt es in „%2“ schon</translation>
    </message>
    <message>
        <source>requested undefined property &apos;%1&apos;</source>
        <translation>die Eigenschaft „%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>requested property &apos;%1&apos; has wrong type</source>
        <translation>die Eigenschaft „%1“ hat eine andere Art</translation>
    </message>
</context>
<context>
    <name>PropertyStructFactory</name>
    <message>
        <source>PropertyStruct may not contain a preset property</source>
        <translation>eine Struktur darf keine Vorgabe enthalten</translation>
    </message>
</context>
<context>
    <name>PropertyTreeModel</name>
    <message>
        <source>change %1</source>
        <translation>%1 ändern</translation>
    </message>
</context>
<context>
    <name>PropertyValues</name>
    <message>
        <source>A file is needed here</source>
        <translation>Hier wird eine Datei gebraucht</translation>
    </message>
</context>
<context>
    <name>PropertyXMLReader</name>
    <message>
        <source>Preset collections not supported (%1)</source>
        <translation>Sammlungen von Vorgaben werden nicht unterstützt (%1)</translation>
    </message>
    <message>
        <source>Unknown list element &apos;%1&apos;</source>
        <translation>Unbekannter Listeneintrag „%1“</translation>
    </message>
    <message>
        <source>property preset &apos;%1&apos; not found in &apos;%2&apos;</source>
        <translation>die Vorgabe „%1“ fehlt in „%2“</translation>
    </message>
</context>
<context>
    <name>PublishDialog</name>
    <message>
        <source>Publish...</source>
        <translation>Veröffentlichen...</translation>
    </message>
    <message>
        <source>same directory as sprite image</source>
        <translation>neben dem Sprite</translation>
    </message>
    <message>
        <source>Output directory</source>
        <translation>Zielordner</translation>
    </message>
    <message>
        <source>Output directory:</source>
        <translation>Zielordner:</translation>
    </message>
    <message>
        <source>Normal map suffix:</source>
        <translation>Namensendung:</translation>
    </message>
    <message>
        <source>&lt;b&gt;Generate normal map images:&lt;/b&gt;</source>
        <translation>&lt;b&gt;Normal-Maps als Bilder schreiben:&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Invalid parameters</source>
        <translation>Ungültige Angaben</translation>
    </message>
    <message>
        <source>Exporting normal maps without suffix to sprite directory would overwrite sprite images!</source>
        <translation>Normal-Maps ohne Namensendung im Ordner der Sprites würden die Sprites selbst überschreiben!</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>&apos;%1&apos; can&apos;t be a part of a file&apos;s name</source>
        <translation>„%1“ kann nicht Teil eines Dateinamens sein</translation>
    </message>
    <message>
        <source>change export settings</source>
        <translation>Exporteinstellungen ändern</translation>
    </message>
</context>
<context>
    <name>QuotedName</name>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
</context>
<context>
    <name>ReadImage</name>
    <message>
        <source>neither PNG nor JPEG</source>
        <translation>weder PNG noch JPEG</translation>
    </message>
    <message>
        <source>the file ends early</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
    <message>
        <source>no size in the header</source>
        <translation>die Größe fehlt im Dateikopf</translation>
    </message>
    <message>
        <source>too large</source>
        <translation>zu groß</translation>
    </message>
    <message>
        <source>wrong size</source>
        <translation>falsche Größe</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>keine Datei</translation>
    </message>
    <message>
        <source>file too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>die Datei ist nicht lesbar</translation>
    </message>
    <message>
        <source>more than 200,000 chunks; save it anew</source>
        <translation>mehr als 200.000 Chunks; bitte neu speichern</translation>
    </message>
    <message>
        <source>too many scans; save it anew, not as a progressive image</source>
        <translation>zu viele Durchgänge; bitte neu speichern, nicht progressiv</translation>
    </message>
    <message>
        <source>more than 5000 segments; save it anew</source>
        <translation>mehr als 5000 Segmente; bitte neu speichern</translation>
    </message>
    <message>
        <source>reading it takes longer than 30 seconds</source>
        <translation>das Lesen dauert länger als 30 Sekunden</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>der Speicher reicht nicht</translation>
    </message>
</context>
<context>
    <name>RecentFiles</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>RecoveryDialog</name>
    <message>
        <source>Unreadable snapshot</source>
        <translation>Unlesbare Sicherung</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>It is kept in &apos;%1&apos;.</source>
        <translation>Sie bleibt in „%1“.</translation>
    </message>
    <message>
        <source>Never saved</source>
        <translation>Nie gespeichert</translation>
    </message>
    <message>
        <source>The program ended while recovering it the last time.</source>
        <translation>Beim letzten Wiederherstellen endete das Programm.</translation>
    </message>
    <message>
        <source>The project&apos;s file is not there any more.</source>
        <translation>Die Projektdatei gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The project&apos;s file was changed after that.</source>
        <translation>Die Projektdatei wurde danach geändert.</translation>
    </message>
    <message>
        <source>Unsaved work</source>
        <translation>Ungespeicherte Arbeit</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Delete...</source>
        <translation>Löschen...</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Can&apos;t be read</source>
        <translation>Nicht lesbar</translation>
    </message>
    <message>
        <source>Delete?</source>
        <translation>Löschen?</translation>
    </message>
    <message>
        <source>Delete what was kept of %1?</source>
        <translation>Soll die Sicherung von %1 gelöscht werden?</translation>
    </message>
    <message>
        <source>It can&apos;t be recovered then.</source>
        <translation>Dann lässt es sich nicht mehr wiederherstellen.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>a minute ago</source>
        <translation>vor einer Minute</translation>
    </message>
    <message>
        <source>%1 minutes ago</source>
        <translation>vor %1 Minuten</translation>
    </message>
    <message>
        <source>an hour ago</source>
        <translation>vor einer Stunde</translation>
    </message>
    <message>
        <source>%1 hours ago</source>
        <translation>vor %1 Stunden</translation>
    </message>
    <message>
        <source>a day ago</source>
        <translation>vor einem Tag</translation>
    </message>
    <message>
        <source>%1 days ago</source>
        <translation>vor %1 Tagen</translation>
    </message>
    <message>
        <source>The program ended unexpectedly. It had kept this unsaved work:</source>
        <translation>Das Programm endete unerwartet. Diese ungespeicherte Arbeit hatte es gesichert:</translation>
    </message>
    <message>
        <source>You gave up this unsaved work. It is offered for the last time:</source>
        <translation>Diese ungespeicherte Arbeit haben Sie aufgegeben. Sie wird zum letzten Mal angeboten:</translation>
    </message>
    <message>
        <source>Don&apos;t recover</source>
        <translation>Nicht wiederherstellen</translation>
    </message>
    <message>
        <source>%1, given up</source>
        <translation>%1, aufgegeben</translation>
    </message>
    <message>
        <source>You can recover one now. The next start offers the others.</source>
        <translation>Eine davon lässt sich jetzt wiederherstellen. Die anderen bietet der nächste Start an.</translation>
    </message>
    <message>
        <source>You gave up this unsaved work:</source>
        <translation>Diese ungespeicherte Arbeit haben Sie aufgegeben:</translation>
    </message>
    <message>
        <source>If you recover one, the next start offers the others.</source>
        <translation>Stellen Sie eine davon wieder her, bietet der nächste Start die anderen an.</translation>
    </message>
    <message>
        <source>Don&apos;t recover removes all of it.</source>
        <translation>„Nicht wiederherstellen“ entfernt alles.</translation>
    </message>
    <message>
        <source>Later removes what you gave up.</source>
        <translation>„Später“ entfernt, was Sie aufgegeben haben.</translation>
    </message>
    <message>
        <source>The next start offers it for the last time.</source>
        <translation>Der nächste Start bietet sie zum letzten Mal an.</translation>
    </message>
</context>
<context>
    <name>RecoveryInterval</name>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>Keep unsaved work every</source>
        <translation>Ungespeicherte Arbeit sichern alle</translation>
    </message>
    <message>
        <source>After a crash the next start offers what was kept last</source>
        <translation>Nach einem Absturz bietet der nächste Start die letzte Sicherung an</translation>
    </message>
    <message>
        <source>&lt;b&gt;Keep unsaved work every:&lt;/b&gt;</source>
        <translation>&lt;b&gt;Arbeit sichern alle:&lt;/b&gt;</translation>
    </message>
</context>
<context>
    <name>RecoverySnapshot</name>
    <message>
        <source>Two surfaces of the project are named &apos;%1&apos;</source>
        <translation>Zwei Oberflächen des Projekts heißen „%1“</translation>
    </message>
</context>
<context>
    <name>RecoveryStore</name>
    <message>
        <source>The snapshot in &apos;%1&apos; can&apos;t be read</source>
        <translation>Die Sicherung in „%1“ ist nicht lesbar</translation>
    </message>
</context>
<context>
    <name>RecoveryWriter</name>
    <message>
        <source>There is not enough memory</source>
        <translation>der Arbeitsspeicher reicht nicht</translation>
    </message>
    <message>
        <source>No folder can be made for it</source>
        <translation>es lässt sich kein Ordner dafür anlegen</translation>
    </message>
</context>
<context>
    <name>ReservedKeys</name>
    <message>
        <source>%1 takes back what was begun.</source>
        <translation>%1 nimmt Begonnenes zurück.</translation>
    </message>
    <message>
        <source>%1 keeps what was entered.</source>
        <translation>%1 übernimmt Eingegebenes.</translation>
    </message>
    <message>
        <source>%1 goes from field to field.</source>
        <translation>%1 geht von Feld zu Feld.</translation>
    </message>
    <message>
        <source>%1 pans the view and presses buttons.</source>
        <translation>%1 verschiebt die Ansicht und drückt Knöpfe.</translation>
    </message>
    <message>
        <source>%1 belongs to the fields in which text is edited.</source>
        <translation>%1 gehört den Feldern, in denen Text bearbeitet wird.</translation>
    </message>
</context>
<context>
    <name>SampleAction</name>
    <message>
        <source>&amp;Open the sample project</source>
        <translation>&amp;Beispielprojekt öffnen</translation>
    </message>
</context>
<context>
    <name>SaveDevice</name>
    <message>
        <source>only to be opened once and for writing</source>
        <translation>nur einmal und nur zum Schreiben zu öffnen</translation>
    </message>
    <message>
        <source>no new file can be made in the folder</source>
        <translation>im Ordner lässt sich keine neue Datei anlegen</translation>
    </message>
    <message>
        <source>the file&apos;s mode can&apos;t be kept</source>
        <translation>die Zugriffsrechte der Datei lassen sich nicht erhalten</translation>
    </message>
    <message>
        <source>too many links</source>
        <translation>zu viele Verknüpfungen</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>keine Datei</translation>
    </message>
    <message>
        <source>the file is write-protected</source>
        <translation>die Datei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>the file can&apos;t be written</source>
        <translation>die Datei lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>nothing was opened</source>
        <translation>nichts wurde geöffnet</translation>
    </message>
    <message>
        <source>the file can&apos;t be flushed</source>
        <translation>die Datei lässt sich nicht fertig schreiben</translation>
    </message>
    <message>
        <source>the file can&apos;t be synced</source>
        <translation>die Datei lässt sich nicht auf den Datenträger bringen</translation>
    </message>
    <message>
        <source>the new file can&apos;t be moved</source>
        <translation>die neue Datei lässt sich nicht an ihren Platz bringen</translation>
    </message>
    <message>
        <source>the file that is there has to stay</source>
        <translation>die Datei an dieser Stelle muss bleiben</translation>
    </message>
</context>
<context>
    <name>SavePath</name>
    <message>
        <source>Replace file?</source>
        <translation>Datei ersetzen?</translation>
    </message>
    <message>
        <source>%1 already exists. Replace it?</source>
        <translation>%1 gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>What it holds now is lost.</source>
        <translation>Ihr jetziger Inhalt geht verloren.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
</context>
<context>
    <name>SceneSelection</name>
    <message>
        <source>move sprites</source>
        <translation>Sprites verschieben</translation>
    </message>
</context>
<context>
    <name>ShapeTreeView</name>
    <message>
        <source>Sprites</source>
        <translation>Sprites</translation>
    </message>
    <message>
        <source>

No sprites added yet!

Drag and drop
sprites and folders
here</source>
        <translation>

Noch keine Sprites!

Sprites und Ordner
hierher
ziehen</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Further keys</source>
        <translation>Weitere Tasten</translation>
    </message>
    <message>
        <source>%1 opens the menu %2.</source>
        <translation>%1 öffnet das Menü %2.</translation>
    </message>
</context>
<context>
    <name>ShortcutsDialog</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Search for a command or a key</source>
        <translation>Befehl oder Taste suchen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>No Key</source>
        <translation>Keine Taste</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Take It Over</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Reset All...</source>
        <translation>Alle zurücksetzen...</translation>
    </message>
    <message>
        <source>Keys of the command</source>
        <translation>Tasten des Befehls</translation>
    </message>
    <message>
        <source>Has no key of its own</source>
        <translation>Hat keine eigene Taste</translation>
    </message>
    <message>
        <source>Its own key: %1</source>
        <translation>Eigene Taste: %1</translation>
    </message>
    <message>
        <source>Choose a command</source>
        <translation>Einen Befehl wählen</translation>
    </message>
    <message>
        <source>Press the new keys in the field above.</source>
        <translation>Die neuen Tasten im Feld oben drücken.</translation>
    </message>
    <message>
        <source>These keys can&apos;t be changed.</source>
        <translation>Diese Tasten lassen sich nicht ändern.</translation>
    </message>
    <message>
        <source>%1 is its key already.</source>
        <translation>%1 ist schon seine Taste.</translation>
    </message>
    <message>
        <source>%1 is a key of the tools, which stays.</source>
        <translation>%1 ist eine Taste der Werkzeuge und bleibt es.</translation>
    </message>
    <message>
        <source>%1 is the key of %2 now.</source>
        <translation>%1 ist jetzt die Taste von %2.</translation>
    </message>
    <message>
        <source>%1 is the key of %2.</source>
        <translation>%1 ist die Taste von %2.</translation>
    </message>
    <message>
        <source>%1 stays with %2.</source>
        <translation>%1 bleibt bei %2.</translation>
    </message>
    <message>
        <source>%1 Choose other keys.</source>
        <translation>%1 Bitte andere Tasten wählen.</translation>
    </message>
    <message>
        <source>%1 is the key of %2 now, no longer of %3.</source>
        <translation>%1 ist jetzt die Taste von %2, nicht mehr von %3.</translation>
    </message>
    <message>
        <source>%1 stays with %2, for which it was chosen.</source>
        <translation>%1 bleibt bei %2, wofür es gewählt wurde.</translation>
    </message>
    <message>
        <source>Reset all keys?</source>
        <translation>Alle Tasten zurücksetzen?</translation>
    </message>
    <message>
        <source>Give all commands their own keys again?</source>
        <translation>Sollen alle Befehle wieder ihre eigenen Tasten bekommen?</translation>
    </message>
    <message>
        <source>The keys that you have chosen are lost.</source>
        <translation>Die selbst gewählten Tasten gehen verloren.</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>Alle zurücksetzen</translation>
    </message>
</context>
<context>
    <name>Sprite</name>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Image file</source>
        <translation>Bilddatei</translation>
    </message>
</context>
<context>
    <name>SpriteActions</name>
    <message>
        <source>Add &amp;sprites...</source>
        <translation>&amp;Sprites hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Remove sprites</source>
        <translation>Sprites &amp;entfernen</translation>
    </message>
    <message>
        <source>Rename sprite</source>
        <translation>Sprite umbenennen</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Add a new sprite</source>
        <translation>Neues Sprite hinzufügen</translation>
    </message>
    <message>
        <source>Remove selected sprites</source>
        <translation>Ausgewählte Sprites entfernen</translation>
    </message>
    <message>
        <source>Select one or more sprite to open</source>
        <translation>Ein oder mehrere Sprites wählen</translation>
    </message>
    <message>
        <source>Images (*.png *.jpg)</source>
        <translation>Bilder (*.png *.jpg)</translation>
    </message>
    <message>
        <source>Adding sprites</source>
        <translation>Sprites werden hinzugefügt</translation>
    </message>
    <message>
        <source>Sprites added: %1</source>
        <translation>Hinzugefügte Sprites: %1</translation>
    </message>
    <message>
        <source>No sprites added</source>
        <translation>Keine Sprites hinzugefügt</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>SpriteDelegate</name>
    <message>
        <source>Sprite name</source>
        <translation>Name des Sprites</translation>
    </message>
</context>
<context>
    <name>SpriteListModel</name>
    <message>
        <source>%1 × %2 px</source>
        <translation>%1 × %2 px</translation>
    </message>
    <message>
        <source>size changed</source>
        <translation>Größe geändert</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>%1
The image can&apos;t be read.
Put the file back in its place, or choose it under the list.</source>
        <translation>%1
Das Bild ist nicht lesbar.
Die Datei an ihren Platz zurücklegen oder sie unter der Liste wählen.</translation>
    </message>
    <message>
        <source>rename body</source>
        <translation>Sprite umbenennen</translation>
    </message>
    <message>
        <source>%1
The image is %2 now, but its surface was painted at %3.
Bring the image back to its former size, choose another one under the list, or choose Edit &gt; Reload sprites to clear, anchor or scale the surface.</source>
        <translation>%1
Das Bild misst jetzt %2, seine Oberfläche wurde aber bei %3 gemalt.
Das Bild auf die frühere Größe bringen, unter der Liste ein anderes wählen oder die Oberfläche mit Bearbeiten &gt; Sprites neu laden leeren, verankern oder skalieren.</translation>
    </message>
    <message>
        <source>unreadable</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>%1
The image can&apos;t be read: %2.
Save it anew, or choose another one under the list.</source>
        <translation>%1
Das Bild lässt sich nicht lesen: %2.
Es neu speichern oder unter der Liste ein anderes wählen.</translation>
    </message>
</context>
<context>
    <name>SpriteReloading</name>
    <message>
        <source>Reload sprites</source>
        <translation>Sprites neu laden</translation>
    </message>
    <message>
        <source>Read all sprites from their files again</source>
        <translation>Alle Sprites neu aus ihren Dateien lesen</translation>
    </message>
    <message>
        <source>Sprites reloaded: </source>
        <translation>Neu geladene Sprites: </translation>
    </message>
    <message>
        <source>Sprites missing: </source>
        <translation>Fehlende Sprites: </translation>
    </message>
    <message>
        <source>Size of sprites changed: </source>
        <translation>Geänderte Größe von Sprites: </translation>
    </message>
    <message>
        <source>No sprite has changed</source>
        <translation>Kein Sprite hat sich geändert</translation>
    </message>
    <message>
        <source>Fitting surfaces</source>
        <translation>Oberflächen werden angepasst</translation>
    </message>
</context>
<context>
    <name>SpritesSidebar</name>
    <message>
        <source>Auto-rotate light</source>
        <translation>Licht kreisen lassen</translation>
    </message>
    <message>
        <source>Sprites</source>
        <translation>Sprites</translation>
    </message>
    <message>
        <source>Texture</source>
        <translation>Textur</translation>
    </message>
    <message>
        <source>Lit surface</source>
        <translation>Oberfläche im Licht</translation>
    </message>
    <message>
        <source>Lit
surface</source>
        <translation>Relief
im Licht</translation>
    </message>
    <message>
        <source>Lit texture</source>
        <translation>Textur im Licht</translation>
    </message>
    <message>
        <source>Lit
texture</source>
        <translation>Textur
im Licht</translation>
    </message>
    <message>
        <source>Normal map</source>
        <translation>Normal-Map</translation>
    </message>
    <message>
        <source>Normal
map</source>
        <translation>Normal-
Map</translation>
    </message>
    <message>
        <source>Sprite</source>
        <translation>Sprite</translation>
    </message>
    <message>
        <source>Display modes</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>Global light</source>
        <translation>Licht</translation>
    </message>
    <message>
        <source>Texture overlay</source>
        <translation>Textur darüber</translation>
    </message>
    <message>
        <source>How much of the texture is seen over the normal map</source>
        <translation>Wie viel von der Textur über der Normal-Map zu sehen ist</translation>
    </message>
</context>
<context>
    <name>SurfaceFitting</name>
    <message>
        <source>anchor surfaces</source>
        <translation>Oberflächen verankern</translation>
    </message>
    <message>
        <source>anchor surface</source>
        <translation>Oberfläche verankern</translation>
    </message>
    <message>
        <source>Anchored normalmap: </source>
        <translation>Verankerte Normal-Map: </translation>
    </message>
    <message>
        <source>scale surfaces</source>
        <translation>Oberflächen skalieren</translation>
    </message>
    <message>
        <source>scale surface</source>
        <translation>Oberfläche skalieren</translation>
    </message>
    <message>
        <source>Scaled normalmap: </source>
        <translation>Skalierte Normal-Map: </translation>
    </message>
    <message>
        <source>reset normalmaps</source>
        <translation>Normal-Maps zurücksetzen</translation>
    </message>
    <message>
        <source>reset normalmap</source>
        <translation>Normal-Map zurücksetzen</translation>
    </message>
    <message>
        <source>Reset normalmap: </source>
        <translation>Zurückgesetzte Normal-Map: </translation>
    </message>
</context>
<context>
    <name>SystemInformationDialog</name>
    <message>
        <source>%1, %2 x %3, %4 dpi, ratio %5</source>
        <translation>%1, %2 x %3, %4 dpi, Faktor %5</translation>
    </message>
    <message>
        <source>%1 (built with %2), %3</source>
        <translation>%1 (gebaut mit %2), %3</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>%1, kernel %2</source>
        <translation>%1, Kernel %2</translation>
    </message>
    <message>
        <source>Desktop</source>
        <translation>Desktop</translation>
    </message>
    <message>
        <source>Platform</source>
        <translation>Plattform</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>Scale factor</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>System Information</source>
        <translation>Systeminformationen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>ToolsSidebar</name>
    <message>
        <source>This tool has no settings.</source>
        <translation>Dieses Werkzeug hat keine Einstellungen.</translation>
    </message>
    <message>
        <source>Select one sprite</source>
        <translation>Ein Sprite auswählen</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>Brushes &amp; Tools</source>
        <translation>Pinsel &amp; Werkzeuge</translation>
    </message>
    <message>
        <source>TOOL SETTINGS</source>
        <translation>EINSTELLUNGEN</translation>
    </message>
    <message>
        <source>Apply or discard the effect to go on with a tool.</source>
        <translation>Den Effekt anwenden oder verwerfen, um mit einem Werkzeug weiterzumachen.</translation>
    </message>
</context>
<context>
    <name>UndoActions</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
</context>
<context>
    <name>UpdateChecker</name>
    <message>
        <source>It can&apos;t be found. Is there a connection to the network?</source>
        <translation>Sie ist nicht zu finden. Besteht eine Verbindung zum Netz?</translation>
    </message>
    <message>
        <source>Its certificate is not to be trusted.</source>
        <translation>Ihrem Zertifikat ist nicht zu trauen.</translation>
    </message>
    <message>
        <source>It leads to an address that is not secure.</source>
        <translation>Sie führt zu einer unsicheren Adresse.</translation>
    </message>
    <message>
        <source>It leads from one address to the next.</source>
        <translation>Sie führt von einer Adresse zur nächsten.</translation>
    </message>
    <message>
        <source>It answers with the status %1.</source>
        <translation>Sie antwortet mit dem Status %1.</translation>
    </message>
    <message>
        <source>It can&apos;t be reached.</source>
        <translation>Sie ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>It does not answer.</source>
        <translation>Sie antwortet nicht.</translation>
    </message>
    <message>
        <source>Its answer is too long.</source>
        <translation>Ihre Antwort ist zu lang.</translation>
    </message>
    <message>
        <source>Its answer can&apos;t be read.</source>
        <translation>Ihre Antwort ist nicht lesbar.</translation>
    </message>
</context>
<context>
    <name>UpdateChoice</name>
    <message>
        <source>Ask once a day whether there is a newer version</source>
        <translation>Einmal am Tag nach einer neueren Version fragen</translation>
    </message>
    <message>
        <source>Tell of pre-releases, too</source>
        <translation>Auch Vorabversionen melden</translation>
    </message>
    <message>
        <source>Nothing but the program&apos;s name and version goes along.</source>
        <translation>Nur Name und Version des Programms werden gesendet.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Updates:&lt;/b&gt;</source>
        <translation>&lt;b&gt;Aktualisierung:&lt;/b&gt;</translation>
    </message>
</context>
<context>
    <name>UpdateDialog</name>
    <message>
        <source>Open its page</source>
        <translation>Seite öffnen</translation>
    </message>
    <message>
        <source>Skip this version</source>
        <translation>Diese Version überspringen</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Aktualisierung</translation>
    </message>
    <message>
        <source>Looking for a newer version</source>
        <translation>Suche nach einer neueren Version</translation>
    </message>
    <message>
        <source>Asking %1...</source>
        <translation>%1 wird gefragt...</translation>
    </message>
    <message>
        <source>There is no answer</source>
        <translation>Keine Antwort</translation>
    </message>
    <message>
        <source>%1 was asked for a newer version than %2. %3</source>
        <translation>Die Adresse %1 wurde nach einer neueren Version als %2 gefragt. %3</translation>
    </message>
    <message>
        <source>%1 is up to date</source>
        <translation>%1 ist aktuell</translation>
    </message>
    <message>
        <source>There is no newer version than %1.</source>
        <translation>Es gibt keine neuere Version als %1.</translation>
    </message>
    <message>
        <source>You have %1.</source>
        <translation>Installiert ist %1.</translation>
    </message>
    <message>
        <source>The new one is of %1.</source>
        <translation>Die neue ist vom %1.</translation>
    </message>
    <message>
        <source>%1 %2 is there</source>
        <translation>%1 %2 ist da</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>No browser could be opened. The page is at:</source>
        <translation>Es ließ sich kein Browser öffnen. Die Seite steht unter:</translation>
    </message>
</context>
<context>
    <name>UpdateNotices</name>
    <message>
        <source>Check for updates...</source>
        <translation>Nach neuer Version suchen...</translation>
    </message>
    <message>
        <source>May %1 ask %2 once a day whether there is a newer version? Nothing but its name and version goes along.</source>
        <translation>Darf %1 einmal am Tag bei %2 nach einer neueren Version fragen? Nur Name und Version werden gesendet.</translation>
    </message>
    <message>
        <source>Ask daily</source>
        <translation>Täglich fragen</translation>
    </message>
    <message>
        <source>Don&apos;t ask</source>
        <translation>Nicht fragen</translation>
    </message>
    <message>
        <source>%1 %2 is there.</source>
        <translation>%1 %2 ist da.</translation>
    </message>
    <message>
        <source>Details...</source>
        <translation>Einzelheiten...</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
</context>
<context>
    <name>VesperineApplication</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>WindowLayout</name>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
</context>
<context>
    <name>WindowPrompts</name>
    <message>
        <source>Textures not found</source>
        <translation>Texturen nicht gefunden</translation>
    </message>
    <message>
        <source>Failed to load following texture images:</source>
        <translation>Diese Texturen ließen sich nicht laden:</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Suchen...</translation>
    </message>
    <message>
        <source>Remove from project</source>
        <translation>Aus dem Projekt entfernen</translation>
    </message>
    <message>
        <source>Continue without texture</source>
        <translation>Ohne Textur weiter</translation>
    </message>
    <message>
        <source>Select search path</source>
        <translation>Ordner zum Suchen wählen</translation>
    </message>
    <message>
        <source>Size conflict</source>
        <translation>Andere Größe</translation>
    </message>
    <message>
        <source>Size of texture changed:</source>
        <translation>Die Größe der Textur hat sich geändert:</translation>
    </message>
    <message>
        <source>Clear normal map</source>
        <translation>Normal-Map leeren</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Zusammenfassung</translation>
    </message>
    <message>
        <source>Following changes have been made:</source>
        <translation>Das wurde geändert:</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Please note</source>
        <translation>Bitte beachten</translation>
    </message>
    <message>
        <source>This is worth knowing:</source>
        <translation>Gut zu wissen:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Project in use</source>
        <translation>Projekt in Gebrauch</translation>
    </message>
    <message>
        <source>%1 is open in %2.</source>
        <translation>%1 ist offen in %2.</translation>
    </message>
    <message>
        <source>Open read-only</source>
        <translation>Schreibgeschützt öffnen</translation>
    </message>
    <message>
        <source>Project changed on disk</source>
        <translation>Projektdatei geändert</translation>
    </message>
    <message>
        <source>Another program has changed %1 since you opened it.</source>
        <translation>Ein anderes Programm hat %1 seit dem Öffnen geändert.</translation>
    </message>
    <message>
        <source>Replacing it loses what the other program wrote; Save As... keeps both.</source>
        <translation>Beim Ersetzen geht verloren, was das andere Programm schrieb; „Speichern unter...“ behält beides.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Anchor surface</source>
        <translation>Oberfläche verankern</translation>
    </message>
    <message>
        <source>Scale surface</source>
        <translation>Oberfläche skalieren</translation>
    </message>
    <message>
        <source>Anchored, a surface stays at this place, and what is new around it is flat. Scaled, its relief grows with the sprite.</source>
        <translation>Verankert bleibt eine Oberfläche an dieser Stelle, und Neues um sie herum ist flach. Skaliert wächst ihr Relief mit dem Sprite.</translation>
    </message>
    <message>
        <source>You can open it read-only: Save As... keeps your changes under another name.</source>
        <translation>Es lässt sich schreibgeschützt öffnen: „Speichern unter...“ sichert Änderungen unter anderem Namen.</translation>
    </message>
    <message>
        <source>Decide later</source>
        <translation>Später entscheiden</translation>
    </message>
    <message>
        <source>Apply the effect?</source>
        <translation>Effekt anwenden?</translation>
    </message>
    <message>
        <source>Apply the open effect %1?</source>
        <translation>Soll der offene Effekt %1 angewendet werden?</translation>
    </message>
    <message>
        <source>Otherwise the normal maps are written without it.</source>
        <translation>Sonst werden die Normal-Maps ohne ihn geschrieben.</translation>
    </message>
    <message>
        <source>Otherwise it is discarded.</source>
        <translation>Sonst wird er verworfen.</translation>
    </message>
    <message>
        <source>Apply and export</source>
        <translation>Anwenden und exportieren</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Export without it</source>
        <translation>Ohne ihn exportieren</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Files in the way</source>
        <translation>Dateien im Weg</translation>
    </message>
    <message>
        <source>These files were not written by this program. Normal maps would replace them:</source>
        <translation>Diese Dateien stammen nicht von diesem Programm. Normal-Maps würden sie ersetzen:</translation>
    </message>
    <message>
        <source>Keep the files</source>
        <translation>Dateien behalten</translation>
    </message>
</context>
<context>
    <name>XmlGuard</name>
    <message>
        <source>the text is longer than 64 MiB</source>
        <translation>der Text ist länger als 64 MiB</translation>
    </message>
    <message>
        <source>entities are not supported</source>
        <translation>Entitys werden nicht unterstützt</translation>
    </message>
    <message>
        <source>elements are nested too deeply</source>
        <translation>Elemente sind zu tief verschachtelt</translation>
    </message>
    <message>
        <source>an element has more than 100 attributes</source>
        <translation>ein Element hat mehr als 100 Attribute</translation>
    </message>
    <message>
        <source>the project has more than 100,000 bodies; split it into several projects</source>
        <translation>das Projekt hat mehr als 100.000 Sprites; bitte in mehrere Projekte aufteilen</translation>
    </message>
    <message>
        <source>the text has more than two million elements; split the project into several ones</source>
        <translation>der Text hat mehr als zwei Millionen Elemente; bitte in mehrere Projekte aufteilen</translation>
    </message>
    <message>
        <source>the text has more than 500,000 attributes; split the project into several ones</source>
        <translation>der Text hat mehr als 500.000 Attribute; bitte in mehrere Projekte aufteilen</translation>
    </message>
</context>
<context>
    <name>ZoomWidget</name>
    <message>
        <source>&lt;table&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Zoom&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Strg +&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;in&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Strg -&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;out&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Strg 0&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;fit&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Strg 1&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;1:1&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Alt+Wheel&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;continuous&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;/td&gt;&lt;td&gt;&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Pan&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Space&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;pan view&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;</source>
        <translation>&lt;table&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Zoom&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Strg +&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;hinein&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Strg -&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;heraus&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Strg 1&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;einpassen&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Strg 0&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;1:1&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Alt+Mausrad&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;stufenlos&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;/td&gt;&lt;td&gt;&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;&lt;b&gt;Verschieben&lt;/b&gt;&lt;/td&gt;&lt;td&gt;&lt;/td&gt;&lt;/tr&gt;&lt;tr&gt;&lt;td&gt;Leertaste&lt;/td&gt;&lt;td&gt;&amp;nbsp;&amp;nbsp;Ansicht schieben&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom 1:1</source>
        <translation>Zoom 1:1</translation>
    </message>
    <message>
        <source>Zoom Fit</source>
        <translation>Zoom einpassen</translation>
    </message>
    <message>
        <source>Zoom to Selection</source>
        <translation>Zoom auf Auswahl</translation>
    </message>
    <message>
        <source>Zoom:</source>
        <translation>Zoom:</translation>
    </message>
    <message>
        <source>Zoom in percent</source>
        <translation>Zoom in Prozent</translation>
    </message>
</context>
</TS>
