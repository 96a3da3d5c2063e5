<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AtlasSources</name>
    <message>
        <source>the file is missing</source>
        <translation>die Datei fehlt</translation>
    </message>
    <message>
        <source>its image is missing</source>
        <translation>ihr Bild fehlt</translation>
    </message>
    <message>
        <source>damaged or of another kind</source>
        <translation>beschädigt oder von anderer Art</translation>
    </message>
    <message>
        <source>%1 m/pixel</source>
        <translation>%1 m/Pixel</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: %2</source>
        <translation>„%1“: %2</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of %1 maps cannot be shown; the list of maps tells why. %2</source>
        <translation>
            <numerusform>%n von %1 Karten kann nicht gezeigt werden; die Kartenliste nennt den Grund. %2</numerusform>
            <numerusform>%n von %1 Karten können nicht gezeigt werden; die Kartenliste nennt die Gründe. %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>--%1: &quot;%2&quot; will not do; it takes %3</source>
        <translation>--%1: „%2“ geht nicht; erwartet wird %3</translation>
    </message>
    <message>
        <source>Shows calibrated maps and reads positions off them.</source>
        <translation>Zeigt kalibrierte Karten und liest Positionen ab.</translation>
    </message>
    <message>
        <source>Calibration files (.xml), images (.jpg, .bmp), folders of them, lists of maps (.zavatlas).</source>
        <translation>Kalibrierungsdateien (.xml), Bilder (.jpg, .bmp), Ordner mit solchen, Kartenlisten (.zavatlas).</translation>
    </message>
    <message>
        <source>What is drawn over the map: %1.</source>
        <translation>Was über die Karte gezeichnet wird: %1.</translation>
    </message>
    <message>
        <source>Show the whole map.</source>
        <translation>Die ganze Karte zeigen.</translation>
    </message>
    <message>
        <source>Screen pixels for a pixel of the map, 0.5 to 2.</source>
        <translation>Bildschirmpixel je Kartenpixel, 0.5 bis 2.</translation>
    </message>
    <message>
        <source>Position in the middle of the view, in degrees.</source>
        <translation>Position in der Mitte der Ansicht, in Grad.</translation>
    </message>
    <message>
        <source>Language of the texts, as de or en; without it that of the system.</source>
        <translation>Sprache der Texte, etwa de oder en; sonst die des Systems.</translation>
    </message>
    <message>
        <source>Write the window as a picture to FILE and end; needs no display.</source>
        <translation>Das Fenster als Bild in die Datei FILE schreiben und enden; braucht keinen Bildschirm.</translation>
    </message>
    <message>
        <source>Size of the window, 200x150 to 8000x8000.</source>
        <translation>Größe des Fensters, 200x150 bis 8000x8000.</translation>
    </message>
    <message>
        <source>a number from 0.5 to 2</source>
        <translation>eine Zahl von 0.5 bis 2</translation>
    </message>
    <message>
        <source>LAT,LONG in degrees, such as 46.5,8.25</source>
        <translation>LAT,LONG in Grad, etwa 46.5,8.25</translation>
    </message>
    <message>
        <source>WxH in pixels, 200x150 to 8000x8000</source>
        <translation>WxH in Pixeln, 200x150 bis 8000x8000</translation>
    </message>
    <message>
        <source>--fit chooses the magnification itself; leave out --magnification</source>
        <translation>--fit wählt die Vergrößerung selbst; lassen Sie --magnification weg</translation>
    </message>
    <message>
        <source>--screenshot takes the name of the file to write</source>
        <translation>--screenshot braucht den Namen der Datei, die geschrieben wird</translation>
    </message>
    <message>
        <source>%1 (zavgeo-viewer --help tells the options)</source>
        <translation>%1 (zavgeo-viewer --help nennt die Optionen)</translation>
    </message>
    <message>
        <source>Colours of the window: %1.</source>
        <translation>Farben des Fensters: %1.</translation>
    </message>
</context>
<context>
    <name>ExportPicture</name>
    <message>
        <source>There is nothing to save: no part of a map is shown.</source>
        <translation>Es gibt nichts zu speichern: Kein Teil einer Karte wird gezeigt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: the name must end in .png, .jpg or .bmp.</source>
        <translation>„%1“ kann nicht geschrieben werden: Der Name muss auf .png, .jpg oder .bmp enden.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; belongs to the map that is shown. Save the picture under another name.</source>
        <translation>„%1“ gehört zur gezeigten Karte. Speichern Sie das Bild unter einem anderen Namen.</translation>
    </message>
    <message>
        <source>The picture &quot;%1&quot; cannot be written: %2. Choose another folder or make room on the disk.</source>
        <translation>Das Bild „%1“ kann nicht geschrieben werden: %2. Wählen Sie einen anderen Ordner oder schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>The picture &quot;%1&quot; cannot be written: %2.</source>
        <translation>Das Bild „%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>PNG, all pixels as they are (*.png)</source>
        <translation>PNG, alle Pixel wie sie sind (*.png)</translation>
    </message>
    <message>
        <source>JPEG, a smaller file (*.jpg *.jpeg)</source>
        <translation>JPEG, eine kleinere Datei (*.jpg *.jpeg)</translation>
    </message>
    <message>
        <source>BMP (*.bmp)</source>
        <translation>BMP (*.bmp)</translation>
    </message>
</context>
<context>
    <name>GoTo</name>
    <message>
        <source>%1, capital of %2</source>
        <translation>%1, Hauptstadt von %2</translation>
    </message>
    <message>
        <source>There are several: %1.</source>
        <translation>Es gibt mehrere: %1.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no country or capital.</source>
        <translation>„%1“ ist weder ein Land noch eine Hauptstadt.</translation>
    </message>
</context>
<context>
    <name>ImportCopy</name>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
    <message>
        <source>The image &quot;%1&quot; has %2 pixels; a map may have %3 at most.</source>
        <translation>Das Bild „%1“ hat %2 Pixel; eine Karte darf höchstens %3 haben.</translation>
    </message>
    <message>
        <source>Files of the kind &quot;%1&quot; cannot be shown as they are: &quot;%2&quot;.</source>
        <translation>Dateien der Art „%1“ können nicht unmittelbar gezeigt werden: „%2“.</translation>
    </message>
    <message>
        <source>A smaller copy of %1 pixels</source>
        <translation>Eine kleinere Kopie von %1 Pixeln</translation>
    </message>
    <message>
        <source>A copy as JPEG</source>
        <translation>Eine Kopie als JPEG</translation>
    </message>
    <message>
        <source>%1 can be written beside it: &quot;%2&quot;. The original stays as it is.</source>
        <translation>%1 kann daneben geschrieben werden: „%2“. Das Original bleibt, wie es ist.</translation>
    </message>
    <message>
        <source>%1 can be written beside it, with its calibration: &quot;%2&quot;, &quot;%3&quot;. The originals stay as they are.</source>
        <translation>%1 kann mit ihrer Kalibrierung daneben geschrieben werden: „%2“, „%3“. Die Originale bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Write Smaller Copy</source>
        <translation>Kleinere Kopie schreiben</translation>
    </message>
    <message>
        <source>Write Copy</source>
        <translation>Kopie schreiben</translation>
    </message>
    <message>
        <source>The copy cannot be made: &quot;%1&quot;: %2.</source>
        <translation>Die Kopie ist nicht möglich: „%1“: %2.</translation>
    </message>
    <message>
        <source>The copy cannot be made: %1.</source>
        <translation>Die Kopie ist nicht möglich: %1.</translation>
    </message>
</context>
<context>
    <name>LayerStyle</name>
    <message>
        <source>Borders</source>
        <translation>Grenzen</translation>
    </message>
    <message>
        <source>Towns</source>
        <translation>Orte</translation>
    </message>
    <message>
        <source>Cities</source>
        <translation>Städte</translation>
    </message>
    <message>
        <source>Lakes</source>
        <translation>Seen</translation>
    </message>
    <message>
        <source>Rivers</source>
        <translation>Flüsse</translation>
    </message>
    <message>
        <source>Roads</source>
        <translation>Straßen</translation>
    </message>
    <message>
        <source>Routes</source>
        <translation>Routen</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Border</source>
        <translation>Grenze</translation>
    </message>
    <message>
        <source>Town</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Stadt</translation>
    </message>
    <message>
        <source>Lake</source>
        <translation>See</translation>
    </message>
    <message>
        <source>River</source>
        <translation>Fluss</translation>
    </message>
    <message>
        <source>Road</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>Route</source>
        <translation>Route</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Anderes</translation>
    </message>
</context>
<context>
    <name>MapSource</name>
    <message>
        <source>The image &quot;%1&quot; has %2 x %3 pixels; a map may have %4 at most. Save a smaller copy of the image, calibrate that, and open it.</source>
        <translation>Das Bild „%1“ hat %2 x %3 Pixel; eine Karte darf höchstens %4 haben. Speichern Sie eine kleinere Kopie des Bildes, kalibrieren Sie diese und öffnen Sie sie.</translation>
    </message>
    <message>
        <source>Files without an extension</source>
        <translation>Dateien ohne Endung</translation>
    </message>
    <message>
        <source>Files of the kind &quot;%1&quot;</source>
        <translation>Dateien der Art „%1“</translation>
    </message>
    <message>
        <source>%1 cannot be shown: &quot;%2&quot;. Maps are calibration files (.xml) and images (.jpg, .jpeg, .bmp). Save the picture as JPEG or BMP with an image editor and open that.</source>
        <translation>%1 können nicht gezeigt werden: „%2“. Karten sind Kalibrierungsdateien (.xml) und Bilder (.jpg, .jpeg, .bmp). Speichern Sie das Bild mit einem Bildprogramm als JPEG oder BMP und öffnen Sie dieses.</translation>
    </message>
    <message>
        <source>The calibration file &quot;%1&quot; names no map image. Add the image&apos;s file name to its line &quot;&lt;geomap ...&quot; as map=&quot;NAME.jpg&quot;.</source>
        <translation>Die Kalibrierungsdatei „%1“ nennt kein Kartenbild. Ergänzen Sie den Dateinamen des Bildes in ihrer Zeile &quot;&lt;geomap ...&quot; als map=&quot;NAME.jpg&quot;.</translation>
    </message>
    <message>
        <source>The image of the map &quot;%1&quot; is missing. Looked for &quot;%2&quot; and for &quot;%3&quot;. Put the image beside the calibration file and open the map again.</source>
        <translation>Das Bild der Karte „%1“ fehlt. Gesucht wurden „%2“ und „%3“. Legen Sie das Bild neben die Kalibrierungsdatei und öffnen Sie die Karte noch einmal.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no map calibration: it has no &quot;&lt;geomap&quot; element. Open a calibration file or the map&apos;s image.</source>
        <translation>„%1“ ist keine Kartenkalibrierung: Ein Element &quot;&lt;geomap&quot; fehlt. Öffnen Sie eine Kalibrierungsdatei oder das Bild der Karte.</translation>
    </message>
    <message>
        <source>There is no file &quot;%1&quot;. Check its name, or choose it with File, Open.</source>
        <translation>Es gibt keine Datei „%1“. Prüfen Sie den Namen oder wählen Sie sie mit Datei, Öffnen.</translation>
    </message>
    <message>
        <source>Parabolic interpolation</source>
        <translation>Parabolische Interpolation</translation>
    </message>
    <message>
        <source>Second-order polynomial</source>
        <translation>Polynom zweiten Grades</translation>
    </message>
    <message>
        <source>Conic</source>
        <translation>Kegelprojektion</translation>
    </message>
    <message>
        <source>Miller cylindrical</source>
        <translation>Miller-Zylinderprojektion</translation>
    </message>
    <message>
        <source>First order, degrees</source>
        <translation>Erste Ordnung, Grad</translation>
    </message>
    <message>
        <source>UTM</source>
        <translation>UTM</translation>
    </message>
    <message>
        <source>Not calibrated</source>
        <translation>Nicht kalibriert</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be used: %2. The file may be damaged or cut short; fetch it again or restore it from a copy.</source>
        <translation>„%1“ ist nicht verwendbar: %2. Die Datei ist vielleicht beschädigt oder abgeschnitten; holen Sie sie noch einmal oder nehmen Sie eine Sicherungskopie.</translation>
    </message>
</context>
<context>
    <name>MeasureArea</name>
    <message>
        <source>%1 m²</source>
        <translation>%1 m²</translation>
    </message>
    <message>
        <source>%1 km²</source>
        <translation>%1 km²</translation>
    </message>
</context>
<context>
    <name>PositionReadout</name>
    <message>
        <source>Degrees</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>Degrees and minutes</source>
        <translation>Grad und Minuten</translation>
    </message>
    <message>
        <source>Degrees, minutes and seconds</source>
        <translation>Grad, Minuten und Sekunden</translation>
    </message>
    <message>
        <source>UTM</source>
        <translation>UTM</translation>
    </message>
    <message>
        <source>UPS</source>
        <translation>UPS</translation>
    </message>
    <message>
        <source>MGRS</source>
        <translation>MGRS</translation>
    </message>
    <message>
        <source>outside UTM (80° S to 84° N)</source>
        <translation>außerhalb von UTM (80° S bis 84° N)</translation>
    </message>
    <message>
        <source>outside UPS (the poles to 79.5° S and 83.5° N)</source>
        <translation>außerhalb von UPS (Pole bis 79,5° S und 83,5° N)</translation>
    </message>
    <message>
        <source>Scale 1:%1</source>
        <translation>Maßstab 1:%1</translation>
    </message>
</context>
<context>
    <name>PrintPage</name>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>about %1</source>
        <translation>etwa %1</translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Usage: %1</source>
        <translation>Aufruf: %1</translation>
    </message>
    <message>
        <source>[options]</source>
        <translation>[Optionen]</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>Argumente:</translation>
    </message>
    <message>
        <source>Displays help on commandline options.</source>
        <translation>Zeigt die Optionen der Befehlszeile.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Zeigt die Version.</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Unbekannte Option &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>Unexpected value after &apos;%1&apos;.</source>
        <translation>Unerwarteter Wert nach &apos;%1&apos;.</translation>
    </message>
    <message>
        <source>Missing value after &apos;%1&apos;.</source>
        <translation>Nach &apos;%1&apos; fehlt ein Wert.</translation>
    </message>
    <message>
        <source>Displays help including Qt specific options.</source>
        <translation>Zeigt die Optionen, auch die allgemeinen von Qt.</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Runter</translation>
    </message>
</context>
<context>
    <name>Reasons</name>
    <message>
        <source>A sign stands within a number. Put a blank before it.</source>
        <translation>Mitten in einer Zahl steht ein Vorzeichen. Setzen Sie ein Leerzeichen davor.</translation>
    </message>
    <message>
        <source>A sign or a point stands alone.</source>
        <translation>Ein Vorzeichen oder Punkt steht allein.</translation>
    </message>
    <message>
        <source>A number has two points.</source>
        <translation>Eine Zahl hat zwei Punkte.</translation>
    </message>
    <message>
        <source>There are too many commas. Put a semicolon or a blank between the two coordinates.</source>
        <translation>Es sind zu viele Kommas. Setzen Sie einen Strichpunkt oder ein Leerzeichen zwischen die beiden Koordinaten.</translation>
    </message>
    <message>
        <source>A colon has no number before it.</source>
        <translation>Vor einem Doppelpunkt fehlt die Zahl.</translation>
    </message>
    <message>
        <source>A coordinate has at most two colons.</source>
        <translation>Eine Koordinate hat höchstens zwei Doppelpunkte.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no meaning beside grid metres; write mE and mN.</source>
        <translation>„%1“ bedeutet neben Gittermetern nichts; schreiben Sie mE und mN.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no meaning in a position; directions are N, S, E and W.</source>
        <translation>„%1“ bedeutet in einer Position nichts; Richtungen sind N, S, E und W.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no meaning in a position.</source>
        <translation>„%1“ bedeutet in einer Position nichts.</translation>
    </message>
    <message>
        <source>&quot;O&quot; is east in German and west in French and Spanish; write E or W.</source>
        <translation>„O“ ist im Deutschen Osten, im Französischen und Spanischen Westen; schreiben Sie E oder W.</translation>
    </message>
    <message>
        <source>Grid metres are not negative.</source>
        <translation>Gittermeter sind nicht negativ.</translation>
    </message>
    <message>
        <source>Metres have one letter.</source>
        <translation>Meter haben einen Buchstaben.</translation>
    </message>
    <message>
        <source>UTM positions are a zone, the easting and the northing, as 32T 470693 5150563.</source>
        <translation>UTM-Positionen sind Zone, Ostwert und Nordwert, etwa 32T 470693 5150563.</translation>
    </message>
    <message>
        <source>UPS positions are A, B, Y or Z, the easting and the northing, as Z 2426773 1530125.</source>
        <translation>UPS-Positionen sind A, B, Y oder Z, Ostwert und Nordwert, etwa Z 2426773 1530125.</translation>
    </message>
    <message>
        <source>Both numbers are eastings, or both are northings.</source>
        <translation>Beide Zahlen sind Ostwerte oder beide Nordwerte.</translation>
    </message>
    <message>
        <source>The easting %1 is beyond 1000000 metres.</source>
        <translation>Der Ostwert %1 liegt über 1000000 Metern.</translation>
    </message>
    <message>
        <source>The northing %1 is beyond 10000000 metres.</source>
        <translation>Der Nordwert %1 liegt über 10000000 Metern.</translation>
    </message>
    <message>
        <source>There is no UTM band &quot;%1&quot;; bands are C to X without I and O.</source>
        <translation>Es gibt kein UTM-Band „%1“; Bänder sind C bis X ohne I und O.</translation>
    </message>
    <message>
        <source>The UTM zone %1 is not a number from 1 to 60.</source>
        <translation>Die UTM-Zone %1 ist keine Zahl von 1 bis 60.</translation>
    </message>
    <message>
        <source>The zone %1 lacks its band or hemisphere: write %2T, or %3 north.</source>
        <translation>Der Zone %1 fehlt das Band oder die Halbkugel: Schreiben Sie %2T oder %3 north.</translation>
    </message>
    <message>
        <source>The northing does not lie in band %1, %2 to %3 degrees north.</source>
        <translation>Der Nordwert liegt nicht im Band %1, %2 bis %3 Grad Nord.</translation>
    </message>
    <message>
        <source>The northing does not lie in band %1, %2 to %3 degrees south.</source>
        <translation>Der Nordwert liegt nicht im Band %1, %2 bis %3 Grad Süd.</translation>
    </message>
    <message>
        <source>UPS lacks its hemisphere: write A, B, Y or Z, or north or south.</source>
        <translation>UPS fehlt die Halbkugel: Schreiben Sie A, B, Y oder Z oder north oder south.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no hemisphere: write A, B, Y or Z, or north or south.</source>
        <translation>„%1“ ist keine Halbkugel: Schreiben Sie A, B, Y oder Z oder north oder south.</translation>
    </message>
    <message>
        <source>That is further than 1500 km from the pole, where UPS is not used.</source>
        <translation>Das ist weiter als 1500 km vom Pol, wo UPS nicht gilt.</translation>
    </message>
    <message>
        <source>The easting does not lie in %1: A and Y are below 2000000.</source>
        <translation>Der Ostwert liegt nicht in %1: A und Y sind unter 2000000.</translation>
    </message>
    <message>
        <source>The text is too long for a position.</source>
        <translation>Der Text ist zu lang für eine Position.</translation>
    </message>
    <message>
        <source>Type an angle, as 10.5 or 10 30 E.</source>
        <translation>Schreiben Sie einen Winkel, etwa 10.5 oder 10 30 E.</translation>
    </message>
    <message>
        <source>Type a position, as 47.5 8.25 or 32T 470693 5150563.</source>
        <translation>Schreiben Sie eine Position, etwa 47.5 8.25 oder 32T 470693 5150563.</translation>
    </message>
    <message>
        <source>The UTM zone is missing: write it in front, as 32T 470693 5150563.</source>
        <translation>Die UTM-Zone fehlt: Schreiben Sie sie davor, etwa 32T 470693 5150563.</translation>
    </message>
    <message>
        <source>That lies outside UTM, 80 degrees south to 84 degrees north.</source>
        <translation>Das liegt außerhalb von UTM, 80 Grad Süd bis 84 Grad Nord.</translation>
    </message>
    <message>
        <source>%1S was read as the southern hemisphere.</source>
        <translation>%1S wurde als südliche Halbkugel gelesen.</translation>
    </message>
    <message>
        <source>%1S was read as band S, 32 to 40 degrees north; write &quot;%2 south&quot; for the southern hemisphere.</source>
        <translation>%1S wurde als Band S gelesen, 32 bis 40 Grad Nord; schreiben Sie „%2 south“ für die südliche Halbkugel.</translation>
    </message>
    <message>
        <source>A sign for degrees, minutes or seconds has no number before it.</source>
        <translation>Vor einem Zeichen für Grad, Minuten oder Sekunden fehlt die Zahl.</translation>
    </message>
    <message>
        <source>A coordinate has no number.</source>
        <translation>Eine Koordinate hat keine Zahl.</translation>
    </message>
    <message>
        <source>A coordinate is degrees, then minutes, then seconds, as 47° 30&apos; 15&quot;.</source>
        <translation>Eine Koordinate besteht aus Grad, dann Minuten, dann Sekunden, etwa 47° 30&apos; 15&quot;.</translation>
    </message>
    <message>
        <source>Only the last number of a coordinate may have decimals.</source>
        <translation>Nur die letzte Zahl einer Koordinate darf Nachkommastellen haben.</translation>
    </message>
    <message>
        <source>Only the degrees may have a sign.</source>
        <translation>Nur die Grad dürfen ein Vorzeichen haben.</translation>
    </message>
    <message>
        <source>Minutes and seconds are below 60, not %1.</source>
        <translation>Minuten und Sekunden sind kleiner als 60, nicht %1.</translation>
    </message>
    <message>
        <source>A coordinate has one letter, before or after it.</source>
        <translation>Eine Koordinate hat einen Buchstaben, davor oder danach.</translation>
    </message>
    <message>
        <source>A coordinate has a sign and a letter; leave one of them out.</source>
        <translation>Eine Koordinate hat Vorzeichen und Buchstaben; lassen Sie eines weg.</translation>
    </message>
    <message>
        <source>The latitude %1 is beyond 90 degrees. The latitude comes first, unless letters tell, as in 8.25 E 47.5 N.</source>
        <translation>Die Breite %1 liegt über 90 Grad. Die Breite kommt zuerst, außer Buchstaben sagen es anders wie in 8.25 E 47.5 N.</translation>
    </message>
    <message>
        <source>The longitude %1 is beyond 360 degrees.</source>
        <translation>Die Länge %1 liegt über 360 Grad.</translation>
    </message>
    <message>
        <source>That is one coordinate; a position has two, as 47.5 8.25.</source>
        <translation>Das ist eine Koordinate; eine Position hat zwei, etwa 47.5 8.25.</translation>
    </message>
    <message>
        <source>It is not clear where the second coordinate begins. Put a semicolon between them, as 47 30; 8.25.</source>
        <translation>Es ist nicht klar, wo die zweite Koordinate beginnt. Setzen Sie einen Strichpunkt dazwischen, etwa 47 30; 8.25.</translation>
    </message>
    <message>
        <source>Both coordinates are latitudes (N or S).</source>
        <translation>Beide Koordinaten sind Breiten (N oder S).</translation>
    </message>
    <message>
        <source>Both coordinates are longitudes (E or W).</source>
        <translation>Beide Koordinaten sind Längen (E oder W).</translation>
    </message>
    <message>
        <source>One angle is wanted, as 10.5 or 10 30 E.</source>
        <translation>Gefragt ist ein Winkel, etwa 10.5 oder 10 30 E.</translation>
    </message>
    <message>
        <source>A meridian lies east or west (E, W).</source>
        <translation>Ein Meridian liegt östlich oder westlich (E, W).</translation>
    </message>
    <message>
        <source>A parallel lies north or south (N, S).</source>
        <translation>Ein Breitenkreis liegt nördlich oder südlich (N, S).</translation>
    </message>
    <message>
        <source>The longitude of a meridian is at most 360 degrees.</source>
        <translation>Die Länge eines Meridians ist höchstens 360 Grad.</translation>
    </message>
    <message>
        <source>The latitude of a parallel is at most 90 degrees.</source>
        <translation>Die Breite eines Breitenkreises ist höchstens 90 Grad.</translation>
    </message>
    <message>
        <source>A grid reference has as many digits for the easting as for the northing.</source>
        <translation>Eine Gitterangabe hat für Ost- und Nordwert gleich viele Ziffern.</translation>
    </message>
    <message>
        <source>A grid reference has at most 8 digits for each coordinate.</source>
        <translation>Eine Gitterangabe hat höchstens 8 Ziffern je Koordinate.</translation>
    </message>
    <message>
        <source>There is no square %1 in %2.</source>
        <translation>Es gibt kein Quadrat %1 in %2.</translation>
    </message>
    <message>
        <source>There is no zone %1.</source>
        <translation>Es gibt keine Zone %1.</translation>
    </message>
    <message>
        <source>That is no grid reference, as 32T MS 70693 50563.</source>
        <translation>Das ist keine Gitterangabe wie 32T MS 70693 50563.</translation>
    </message>
    <message>
        <source>A grid reference begins with its zone, or near a pole with A, B, Y or Z.</source>
        <translation>Eine Gitterangabe beginnt mit ihrer Zone, nahe den Polen mit A, B, Y oder Z.</translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>es gibt keine solche Datei</translation>
    </message>
    <message>
        <source>there is no column %1</source>
        <translation>es gibt keine Spalte %1</translation>
    </message>
    <message>
        <source>line %1: a quote is not closed</source>
        <translation>Zeile %1: Ein Anführungszeichen ist nicht geschlossen</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is not a number</source>
        <translation>%1 „%2“ ist keine Zahl</translation>
    </message>
    <message>
        <source>%1 %2 is no whole number</source>
        <translation>%1 %2 ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>zone %1 is not whole</source>
        <translation>die Zone %1 ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>%1 %2 is outside %3..%4</source>
        <translation>%1 %2 liegt nicht zwischen %3 und %4</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is neither true nor false</source>
        <translation>%1 „%2“ ist weder true noch false</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is neither meridian nor parallel</source>
        <translation>%1 „%2“ ist weder meridian noch parallel</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is not of the form #RRGGBB</source>
        <translation>%1 „%2“ hat nicht die Form #RRGGBB</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is not of the form 2024-02-29 13:45</source>
        <translation>%1 „%2“ hat nicht die Form 2024-02-29 13:45</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is none of %3</source>
        <translation>%1 „%2“ ist nichts von %3</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot; is too long and was cut</source>
        <translation>%1 „%2“ ist zu lang und wurde gekürzt</translation>
    </message>
    <message>
        <source>%1 holds a double quote or a line break, which a landmark file cannot store</source>
        <translation>%1 enthält ein Anführungszeichen oder einen Zeilenumbruch, was eine Ortsmarkendatei nicht speichern kann</translation>
    </message>
    <message>
        <source>the row holds no position</source>
        <translation>die Zeile enthält keine Position</translation>
    </message>
    <message>
        <source>holds no landmarks</source>
        <translation>enthält keine Ortsmarken</translation>
    </message>
</context>
<context>
    <name>RecoveryFolder</name>
    <message>
        <source>the folder &quot;%1&quot; cannot be written</source>
        <translation>in den Ordner „%1“ kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>Theme</name>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;High Contrast</source>
        <translation>Hoher &amp;Kontrast</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>Farbsche&amp;ma</translation>
    </message>
</context>
<context>
    <name>ToolLength</name>
    <message>
        <source>%1 pixels</source>
        <translation>%1 Pixel</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
</context>
<context>
    <name>zav::CalibDocument</name>
    <message>
        <source>The position is not on the globe.</source>
        <translation>Die Position liegt nicht auf der Erde.</translation>
    </message>
    <message>
        <source>The position is outside the UTM grid.</source>
        <translation>Die Position liegt außerhalb des UTM-Gitters.</translation>
    </message>
    <message>
        <source>UTM metres need a zone: type it before them, as 32T 470693 5150563, or set the map&apos;s zone first.</source>
        <translation>UTM-Meter brauchen eine Zone: Schreiben Sie sie davor, etwa 32T 470693 5150563, oder stellen Sie zuerst die Zone der Karte ein.</translation>
    </message>
    <message>
        <source>Add point %1</source>
        <translation>Punkt %1 hinzufügen</translation>
    </message>
    <message>
        <source>The line is not on the globe.</source>
        <translation>Die Linie liegt nicht auf der Erde.</translation>
    </message>
    <message>
        <source>Move point %1</source>
        <translation>Punkt %1 verschieben</translation>
    </message>
    <message>
        <source>Remove point %1</source>
        <translation>Punkt %1 löschen</translation>
    </message>
    <message numerus="yes">
        <source>Remove %n points</source>
        <translation>
            <numerusform>%n Punkt löschen</numerusform>
            <numerusform>%n Punkte löschen</numerusform>
        </translation>
    </message>
    <message>
        <source>Restore point %1</source>
        <translation>Punkt %1 zurückholen</translation>
    </message>
    <message numerus="yes">
        <source>Restore %n points</source>
        <translation>
            <numerusform>%n Punkt zurückholen</numerusform>
            <numerusform>%n Punkte zurückholen</numerusform>
        </translation>
    </message>
    <message>
        <source>Change position of point %1</source>
        <translation>Position von Punkt %1 ändern</translation>
    </message>
    <message>
        <source>Change line of point %1</source>
        <translation>Linie von Punkt %1 ändern</translation>
    </message>
    <message>
        <source>Name point %1</source>
        <translation>Punkt %1 benennen</translation>
    </message>
    <message>
        <source>Switch on point %1</source>
        <translation>Punkt %1 einschalten</translation>
    </message>
    <message>
        <source>Switch off point %1</source>
        <translation>Punkt %1 ausschalten</translation>
    </message>
    <message>
        <source>Change model to &quot;%1&quot;</source>
        <translation>Modell „%1“ wählen</translation>
    </message>
    <message>
        <source>Change zone to %1 south</source>
        <translation>Zone %1 Süd wählen</translation>
    </message>
    <message>
        <source>Change zone to %1 north</source>
        <translation>Zone %1 Nord wählen</translation>
    </message>
    <message>
        <source>UTM zones are 1 to 60.</source>
        <translation>UTM-Zonen sind 1 bis 60.</translation>
    </message>
    <message>
        <source>Change ellipsoid</source>
        <translation>Ellipsoid ändern</translation>
    </message>
    <message>
        <source>Change caption</source>
        <translation>Titel ändern</translation>
    </message>
    <message>
        <source>Calibration files cannot hold a double quote or a line break in the caption.</source>
        <translation>Kalibrierungsdateien können im Titel keine Anführungszeichen und keinen Zeilenumbruch enthalten.</translation>
    </message>
    <message>
        <source>Change image</source>
        <translation>Bild ändern</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no image.</source>
        <translation>„%1“ ist kein Bild.</translation>
    </message>
    <message>
        <source>The file with the points&apos; names cannot be read: %1.</source>
        <translation>Die Datei mit den Namen der Punkte kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>The map&apos;s image is missing.</source>
        <translation>Das Bild der Karte fehlt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds no calibration.</source>
        <translation>„%1“ enthält keine Kalibrierung.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds no calibration &quot;%2&quot;.</source>
        <translation>„%1“ enthält keine Kalibrierung „%2“.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be saved: %2.</source>
        <translation>„%1“ kann nicht gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>There is no map to save.</source>
        <translation>Es gibt keine Karte zu speichern.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds no points.</source>
        <translation>„%1“ enthält keine Punkte.</translation>
    </message>
    <message numerus="yes">
        <source>Import %n point(s)</source>
        <translation>
            <numerusform>%n Punkt importieren</numerusform>
            <numerusform>%n Punkte importieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Quality along X</source>
        <translation>Güte in X</translation>
    </message>
    <message>
        <source>Quality along Y</source>
        <translation>Güte in Y</translation>
    </message>
    <message>
        <source>RMS along X</source>
        <translation>RMS in X</translation>
    </message>
    <message>
        <source>RMS along Y</source>
        <translation>RMS in Y</translation>
    </message>
    <message>
        <source>RMS</source>
        <translation>RMS</translation>
    </message>
    <message>
        <source>Largest</source>
        <translation>Größte</translation>
    </message>
    <message>
        <source>RMS on the ground</source>
        <translation>RMS in der Natur</translation>
    </message>
    <message>
        <source>Largest on the ground</source>
        <translation>Größte in der Natur</translation>
    </message>
    <message>
        <source>Size of a pixel</source>
        <translation>Größe eines Pixels</translation>
    </message>
    <message>
        <source>QualX = sqrt( sum( (d - mean d)^2 ) / (n - 1) ), where d is the predicted minus the given X of a point, the prediction rounded to a whole pixel, and n the number of points. Control points only.</source>
        <translation>QualX = sqrt( sum( (d - Mittel d)^2 ) / (n - 1) ), wobei d das berechnete minus das gegebene X eines Punktes ist, das berechnete auf ganze Pixel gerundet, und n die Anzahl der Punkte. Nur Passpunkte.</translation>
    </message>
    <message>
        <source>sqrt( sum( dX^2 ) / n ), where dX is the predicted minus the given X of a point in pixels, not rounded.</source>
        <translation>sqrt( sum( dX^2 ) / n ), wobei dX das berechnete minus das gegebene X eines Punktes in Pixeln ist, nicht gerundet.</translation>
    </message>
    <message>
        <source>sqrt( sum( dY^2 ) / n ), where dY is the predicted minus the given Y of a point in pixels, not rounded.</source>
        <translation>sqrt( sum( dY^2 ) / n ), wobei dY das berechnete minus das gegebene Y eines Punktes in Pixeln ist, nicht gerundet.</translation>
    </message>
    <message>
        <source>sqrt( sum( dX^2 + dY^2 ) / n ), in pixels, not rounded.</source>
        <translation>sqrt( sum( dX^2 + dY^2 ) / n ), in Pixeln, nicht gerundet.</translation>
    </message>
    <message>
        <source>The largest sqrt( dX^2 + dY^2 ) of all points, in pixels.</source>
        <translation>Das größte sqrt( dX^2 + dY^2 ) aller Punkte, in Pixeln.</translation>
    </message>
    <message>
        <source>sqrt( sum( s^2 ) / n ), where s is the distance on a sphere of 6371008.8 m from a point&apos;s position to the one that the map gives for its pixel.</source>
        <translation>sqrt( sum( s^2 ) / n ), wobei s der Abstand von der Position eines Punktes zu der ist, die die Karte für sein Pixel angibt, auf einer Kugel von 6371008,8 m Radius.</translation>
    </message>
    <message>
        <source>The largest distance, on a sphere of 6371008.8 m, from a point&apos;s position to the one that the map gives for its pixel.</source>
        <translation>Der größte Abstand von der Position eines Punktes zu der, die die Karte für sein Pixel angibt, auf einer Kugel von 6371008,8 m Radius.</translation>
    </message>
    <message>
        <source>The great-circle distance between the ends of the image&apos;s middle row, divided by its width in pixels.</source>
        <translation>Der Großkreisabstand zwischen den Enden der mittleren Bildzeile, geteilt durch ihre Breite in Pixeln.</translation>
    </message>
    <message>
        <source>Point %1 on meridian %2</source>
        <translation>Punkt %1 auf dem Meridian %2</translation>
    </message>
    <message>
        <source>Point %1 on parallel %2</source>
        <translation>Punkt %1 auf dem Breitenkreis %2</translation>
    </message>
    <message>
        <source>Point %1</source>
        <translation>Punkt %1</translation>
    </message>
    <message>
        <source>The file with the points&apos; names belongs to another map and is not used.</source>
        <translation>Die Datei mit den Namen der Punkte gehört zu einer anderen Karte und wird nicht verwendet.</translation>
    </message>
    <message numerus="yes">
        <source>The calibration was changed by another program: %n point(s) not as before; their names are dropped.</source>
        <translation>
            <numerusform>Ein anderes Programm hat die Kalibrierung geändert: %n Punkt ist nicht mehr wie vorher; sein Name entfällt.</numerusform>
            <numerusform>Ein anderes Programm hat die Kalibrierung geändert: %n Punkte sind nicht mehr wie vorher; ihre Namen entfallen.</numerusform>
        </translation>
    </message>
    <message>
        <source>The file with the points&apos; names is damaged, or was made by a newer version; names and points that are switched off are not shown.</source>
        <translation>Die Datei mit den Namen der Punkte ist beschädigt oder stammt von einer neueren Version; Namen und ausgeschaltete Punkte werden nicht gezeigt.</translation>
    </message>
    <message numerus="yes">
        <source>The file with the points&apos; names is damaged: %n of its lines could not be read.</source>
        <translation>
            <numerusform>Die Datei mit den Namen der Punkte ist beschädigt: %n ihrer Zeilen konnte nicht gelesen werden.</numerusform>
            <numerusform>Die Datei mit den Namen der Punkte ist beschädigt: %n ihrer Zeilen konnten nicht gelesen werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>A map has at most %1 control points.</source>
        <translation>Eine Karte hat höchstens %1 Passpunkte.</translation>
    </message>
    <message>
        <source>A map has at most %1 graticule lines.</source>
        <translation>Eine Karte hat höchstens %1 Netzlinien.</translation>
    </message>
    <message>
        <source>A graticule line has at most %1 points.</source>
        <translation>Eine Netzlinie hat höchstens %1 Punkte.</translation>
    </message>
    <message>
        <source>No model is chosen, so the map tells no positions. Choose one; &quot;%1&quot; needs the fewest points.</source>
        <translation>Es ist kein Modell gewählt, daher nennt die Karte keine Positionen. Wählen Sie eines; „%1“ braucht die wenigsten Punkte.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs at least %2 points, and there is none. Add %3 more, spread over the map.</source>
        <translation>„%1“ braucht mindestens %2 Punkte, und es gibt keinen. Setzen Sie noch %3, über die Karte verteilt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs at least %2 points, and there is 1. Add %3 more, spread over the map.</source>
        <translation>„%1“ braucht mindestens %2 Punkte, und es gibt 1. Setzen Sie noch %3, über die Karte verteilt.</translation>
    </message>
    <message numerus="yes">
        <source>&quot;%1&quot; needs at least %2 points, and there are %n. Add %3 more, spread over the map.</source>
        <translation>
            <numerusform>„%1“ braucht mindestens %2 Punkte, und es gibt %n. Setzen Sie noch %3, über die Karte verteilt.</numerusform>
            <numerusform>„%1“ braucht mindestens %2 Punkte, und es gibt %n. Setzen Sie noch %3, über die Karte verteilt.</numerusform>
        </translation>
    </message>
    <message>
        <source>The points lie in a row or on one curve, so the map is not determined away from it. Add points in the middle and in the corners.</source>
        <translation>Die Punkte liegen in einer Reihe oder auf einer Kurve, daher ist die Karte abseits davon nicht bestimmt. Setzen Sie Punkte in der Mitte und in den Ecken.</translation>
    </message>
    <message>
        <source>The points lie in a row, so the map is not determined to its sides. Add a point far from that row.</source>
        <translation>Die Punkte liegen in einer Reihe, daher ist die Karte beiderseits davon nicht bestimmt. Setzen Sie einen Punkt weit weg von dieser Reihe.</translation>
    </message>
    <message>
        <source>The points are just enough for this model: it meets them all, even wrong ones. Add one more to see how good they are.</source>
        <translation>Die Punkte reichen für dieses Modell gerade aus: Es trifft alle, auch falsche. Setzen Sie noch einen, um zu sehen, wie gut sie sind.</translation>
    </message>
    <message>
        <source>%1 is outside the image, at pixel %2, %3.</source>
        <translation>%1 liegt außerhalb des Bildes, bei Pixel %2, %3.</translation>
    </message>
    <message>
        <source>The search for the point in which the meridians meet has gone astray with these points, though they are good for about %1 pixels. Add points in other parts of the map, best in all corners.</source>
        <translation>Die Suche nach dem Schnittpunkt der Meridiane ist mit diesen Punkten fehlgegangen, obwohl sie auf etwa %1 Pixel genau sind. Setzen Sie Punkte in anderen Teilen der Karte, am besten in allen Ecken.</translation>
    </message>
    <message>
        <source>%1 disagrees with the rest: the others put it %2 pixels away. Check its position and its pixel.</source>
        <translation>%1 passt nicht zum Rest: Nach den anderen läge er %2 Pixel entfernt. Prüfen Sie seine Position und sein Pixel.</translation>
    </message>
    <message>
        <source>It fits with latitude and longitude exchanged.</source>
        <translation>Er passt, wenn Breite und Länge vertauscht werden.</translation>
    </message>
    <message>
        <source>It fits on the other side of the equator (N, S).</source>
        <translation>Er passt auf der anderen Seite des Äquators (N, S).</translation>
    </message>
    <message>
        <source>It fits on the other side of Greenwich (E, W).</source>
        <translation>Er passt auf der anderen Seite von Greenwich (E, W).</translation>
    </message>
    <message>
        <source>The map has no UTM zone, so it tells no positions. Set zone and hemisphere; they are printed on the sheet&apos;s margin.</source>
        <translation>Die Karte hat keine UTM-Zone, daher nennt sie keine Positionen. Stellen Sie Zone und Halbkugel ein; sie stehen am Blattrand.</translation>
    </message>
    <message>
        <source>%1 is in UTM metres without a zone and is not used. Set the map&apos;s zone, or type the position with one.</source>
        <translation>%1 steht in UTM-Metern ohne Zone und wird nicht verwendet. Stellen Sie die Zone der Karte ein oder schreiben Sie die Position mit Zone.</translation>
    </message>
    <message>
        <source>%1 lies in zone %2, the map is in zone %3. It is converted; check the zone.</source>
        <translation>%1 liegt in Zone %2, die Karte in Zone %3. Er wird umgerechnet; prüfen Sie die Zone.</translation>
    </message>
    <message numerus="yes">
        <source>%n points do not lie in the map&apos;s zone %3, first of all %1 in zone %2. They are converted; check the zones.</source>
        <translation>
            <numerusform>%n Punkt liegt nicht in der Zone %3 der Karte: %1 in Zone %2. Er wird umgerechnet; prüfen Sie die Zone.</numerusform>
            <numerusform>%n Punkte liegen nicht in der Zone %3 der Karte, als erster %1 in Zone %2. Sie werden umgerechnet; prüfen Sie die Zonen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Parallel %1 is not used yet: a line needs 3 points, add %n more.</source>
        <translation>
            <numerusform>Der Breitenkreis %1 wird noch nicht verwendet: Eine Linie braucht 3 Punkte, setzen Sie noch %n.</numerusform>
            <numerusform>Der Breitenkreis %1 wird noch nicht verwendet: Eine Linie braucht 3 Punkte, setzen Sie noch %n.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Meridian %1 is not used yet: a line needs 3 points, add %n more.</source>
        <translation>
            <numerusform>Der Meridian %1 wird noch nicht verwendet: Eine Linie braucht 3 Punkte, setzen Sie noch %n.</numerusform>
            <numerusform>Der Meridian %1 wird noch nicht verwendet: Eine Linie braucht 3 Punkte, setzen Sie noch %n.</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs two meridians and two parallels of at least 3 points each; complete are %2 and %3.</source>
        <translation>„%1“ braucht zwei Meridiane und zwei Breitenkreise mit je mindestens 3 Punkten; vollständig sind %2 und %3.</translation>
    </message>
    <message>
        <source>top left</source>
        <translation>oben links</translation>
    </message>
    <message>
        <source>bottom left</source>
        <translation>unten links</translation>
    </message>
    <message>
        <source>bottom right</source>
        <translation>unten rechts</translation>
    </message>
    <message>
        <source>top right</source>
        <translation>oben rechts</translation>
    </message>
    <message>
        <source>The map is a guess in its corners (%1): an error of one pixel in the points grows to about %2 pixels there. Add points nearer to them.</source>
        <translation>In den Ecken (%1) ist die Karte nur geraten: Ein Fehler von einem Pixel in den Punkten wächst dort auf etwa %2 Pixel. Setzen Sie Punkte näher bei den Ecken.</translation>
    </message>
    <message>
        <source>Calibration files cannot hold zone 60. This program keeps it in a file of its own beside; other programs will find no zone.</source>
        <translation>Kalibrierungsdateien können die Zone 60 nicht enthalten. Dieses Programm hebt sie in einer eigenen Datei daneben auf; andere Programme finden keine Zone.</translation>
    </message>
    <message>
        <source>Calibration files hold degrees to five decimals, about 1 metre, and a pixel of this map is %1 metres. Other programs will find the points off by up to a pixel or more; &quot;%2&quot; stores metres and has no such limit.</source>
        <translation>Kalibrierungsdateien enthalten Grad mit fünf Nachkommastellen, etwa 1 Meter, und ein Pixel dieser Karte misst %1 Meter. In anderen Programmen liegen die Punkte um bis zu einem Pixel oder mehr daneben; „%2“ speichert Meter und hat diese Grenze nicht.</translation>
    </message>
    <message>
        <source>Recover unsaved work</source>
        <translation>Ungespeicherte Arbeit wiederherstellen</translation>
    </message>
    <message>
        <source>The unsaved work cannot be read.</source>
        <translation>Die ungespeicherte Arbeit kann nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>zav::CalibrationDock</name>
    <message>
        <source>For maps whose parallels and meridians are straight, evenly spaced lines. 3 points or more.</source>
        <translation>Für Karten, deren Breitenkreise und Meridiane gerade Linien in gleichen Abständen sind. Ab 3 Punkten.</translation>
    </message>
    <message>
        <source>For topographic maps with a UTM grid, within one zone. 3 points or more.</source>
        <translation>Für topographische Karten mit UTM-Gitter, innerhalb einer Zone. Ab 3 Punkten.</translation>
    </message>
    <message>
        <source>For world maps whose parallels get farther apart towards the poles. 3 points or more.</source>
        <translation>Für Weltkarten, deren Breitenkreise zu den Polen hin weiter auseinander liegen. Ab 3 Punkten.</translation>
    </message>
    <message>
        <source>For maps whose meridians are straight and meet in a point, parallels are arcs. 3 points or more.</source>
        <translation>Für Karten mit geraden Meridianen, die sich in einem Punkt treffen, und Kreisbögen als Breitenkreisen. Ab 3 Punkten.</translation>
    </message>
    <message>
        <source>For anything that is bent a little, the paper included. 6 points or more, spread over the map.</source>
        <translation>Für alles, was ein wenig gebogen ist, auch das Papier. Ab 6 Punkten, über die Karte verteilt.</translation>
    </message>
    <message>
        <source>For any graticule: mark 3 points or more on each of at least 2 parallels and 2 meridians.</source>
        <translation>Für jedes Gradnetz: 3 oder mehr Punkte auf jedem von mindestens 2 Breitenkreisen und 2 Meridianen setzen.</translation>
    </message>
    <message>
        <source>Choose how the map was drawn. It can be changed at any time: the points stay.</source>
        <translation>Wählen Sie, wie die Karte gezeichnet ist. Das lässt sich jederzeit ändern: Die Punkte bleiben.</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>&amp;Model:</source>
        <translation>&amp;Modell:</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>UTM zone</source>
        <translation>UTM-Zone</translation>
    </message>
    <message>
        <source>North</source>
        <translation>Nord</translation>
    </message>
    <message>
        <source>South</source>
        <translation>Süd</translation>
    </message>
    <message>
        <source>Hemisphere</source>
        <translation>Halbkugel</translation>
    </message>
    <message>
        <source>&amp;Zone:</source>
        <translation>&amp;Zone:</translation>
    </message>
    <message>
        <source>Ellipsoid</source>
        <translation>Ellipsoid</translation>
    </message>
    <message>
        <source>&amp;Ellipsoid:</source>
        <translation>&amp;Ellipsoid:</translation>
    </message>
    <message>
        <source>Calibration points</source>
        <translation>Passpunkte</translation>
    </message>
    <message>
        <source>A click goes to the point</source>
        <translation>Ein Klick geht zum Punkt</translation>
    </message>
</context>
<context>
    <name>zav::CalibrationEditor</name>
    <message>
        <source>&amp;Accept</source>
        <translation>&amp;Annehmen</translation>
    </message>
    <message>
        <source>Position of the point</source>
        <translation>Position des Punktes</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>optional</source>
        <translation>wahlfrei</translation>
    </message>
    <message>
        <source>Understood as</source>
        <translation>Verstanden als</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Takes the point (Enter)</source>
        <translation>Nimmt den Punkt (Eingabetaste)</translation>
    </message>
    <message>
        <source>Takes no point (Esc)</source>
        <translation>Nimmt keinen Punkt (Esc)</translation>
    </message>
    <message>
        <source>&amp;Position:</source>
        <translation>&amp;Position:</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
</context>
<context>
    <name>zav::CalibrationMagnifier</name>
    <message>
        <source>Magnifier</source>
        <translation>Lupe</translation>
    </message>
    <message>
        <source>%1   %2x</source>
        <translation>%1   %2x</translation>
    </message>
</context>
<context>
    <name>zav::CalibrationMenu</name>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>&amp;True to scale</source>
        <translation>&amp;Maßstäblich</translation>
    </message>
    <message>
        <source>%1 times as long</source>
        <translation>%1-mal so lang</translation>
    </message>
    <message>
        <source>&amp;Calibration</source>
        <translation>&amp;Kalibrierung</translation>
    </message>
    <message>
        <source>&amp;Calibrate</source>
        <translation>&amp;Kalibrieren</translation>
    </message>
    <message>
        <source>Set and check the points that calibrate the map (F8)</source>
        <translation>Die Passpunkte der Karte setzen und prüfen (F8)</translation>
    </message>
    <message>
        <source>&amp;New Calibration</source>
        <translation>&amp;Neue Kalibrierung</translation>
    </message>
    <message>
        <source>Begin anew with the open image, without points</source>
        <translation>Mit dem offenen Bild neu beginnen, ohne Punkte</translation>
    </message>
    <message>
        <source>&amp;Save Calibration</source>
        <translation>Kalibrierung &amp;speichern</translation>
    </message>
    <message>
        <source>Write the calibration file; the image stays as it is</source>
        <translation>Die Kalibrierungsdatei schreiben; das Bild bleibt, wie es ist</translation>
    </message>
    <message>
        <source>Save Calibration &amp;As...</source>
        <translation>Kalibrierung speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Write the calibration to another file</source>
        <translation>Die Kalibrierung in eine andere Datei schreiben</translation>
    </message>
    <message>
        <source>Re&amp;vert</source>
        <translation>Änderungen &amp;verwerfen</translation>
    </message>
    <message>
        <source>Back to the calibration as it was saved</source>
        <translation>Zurück zur gespeicherten Kalibrierung</translation>
    </message>
    <message>
        <source>&amp;Import Points...</source>
        <translation>Punkte &amp;importieren...</translation>
    </message>
    <message>
        <source>Read points from a table (CSV)</source>
        <translation>Punkte aus einer Tabelle (CSV) lesen</translation>
    </message>
    <message>
        <source>&amp;Export Points...</source>
        <translation>Punkte &amp;exportieren...</translation>
    </message>
    <message>
        <source>Write the points to a table (CSV)</source>
        <translation>Die Punkte in eine Tabelle (CSV) schreiben</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>A&amp;dd Point</source>
        <translation>Punkt &amp;hinzufügen</translation>
    </message>
    <message>
        <source>Add a point at the mouse, or in the middle of the view</source>
        <translation>Einen Punkt bei der Maus oder in der Mitte der Ansicht hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Position of the Point...</source>
        <translation>&amp;Position des Punktes...</translation>
    </message>
    <message>
        <source>Type another position (Enter on the map)</source>
        <translation>Eine andere Position schreiben (Eingabetaste auf der Karte)</translation>
    </message>
    <message>
        <source>S&amp;witch the Point Off</source>
        <translation>Punkt &amp;ausschalten</translation>
    </message>
    <message>
        <source>Whether the point counts</source>
        <translation>Ob der Punkt zählt</translation>
    </message>
    <message>
        <source>&amp;Remove Point</source>
        <translation>Punkt l&amp;öschen</translation>
    </message>
    <message>
        <source>Remove the selected point</source>
        <translation>Den ausgewählten Punkt löschen</translation>
    </message>
    <message>
        <source>Remove the point nearest to the mouse</source>
        <translation>Den Punkt löschen, der der Maus am nächsten liegt</translation>
    </message>
    <message>
        <source>Restore &amp;Last Removed</source>
        <translation>&amp;Zuletzt gelöschten zurückholen</translation>
    </message>
    <message>
        <source>Put the point back that was removed last</source>
        <translation>Den Punkt zurückholen, der zuletzt gelöscht wurde</translation>
    </message>
    <message>
        <source>Ne&amp;xt Point</source>
        <translation>Nä&amp;chster Punkt</translation>
    </message>
    <message>
        <source>Next point</source>
        <translation>Nächster Punkt</translation>
    </message>
    <message>
        <source>Previous P&amp;oint</source>
        <translation>V&amp;orheriger Punkt</translation>
    </message>
    <message>
        <source>Previous point</source>
        <translation>Vorheriger Punkt</translation>
    </message>
    <message>
        <source>Ma&amp;gnifier</source>
        <translation>&amp;Lupe</translation>
    </message>
    <message>
        <source>Magnifier Si&amp;ze</source>
        <translation>Ver&amp;größerung der Lupe</translation>
    </message>
    <message>
        <source>&amp;%1 times</source>
        <translation>&amp;%1-fach</translation>
    </message>
    <message>
        <source>Na&amp;mes of the Points</source>
        <translation>Namen der Punk&amp;te</translation>
    </message>
    <message>
        <source>Residuals as &amp;Arrows</source>
        <translation>Kla&amp;ffungen als Pfeile</translation>
    </message>
    <message>
        <source>Click: new point. Drag a point, or arrow keys: move it. Drag elsewhere, middle button or Space: move the map. Wheel: zoom; with Ctrl: magnifier</source>
        <translation>Klick: neuer Punkt. Punkt ziehen, Pfeile: verschieben. Daneben ziehen, mittlere Taste, Leertaste: Karte verschieben. Rad: zoomen; mit Strg: Lupe</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>S&amp;witch the Point On</source>
        <translation>Punkt einsch&amp;alten</translation>
    </message>
    <message>
        <source>Remove Point Nearest to the Mo&amp;use</source>
        <translation>Punkt bei der &amp;Maus löschen</translation>
    </message>
    <message>
        <source>Graticule w&amp;hile Calibrating</source>
        <translation>Gradnetz &amp;beim Kalibrieren</translation>
    </message>
</context>
<context>
    <name>zav::CalibrationTable</name>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>Which line is it? Write 50 N for a parallel, 10.5 E or 10 30 E for a meridian.</source>
        <translation>Welche Linie ist es? Schreiben Sie 50 N für einen Breitenkreis, 10.5 E oder 10 30 E für einen Meridian.</translation>
    </message>
    <message>
        <source>A point whose box is empty stays in the table, but does not count</source>
        <translation>Ein Punkt ohne Häkchen bleibt in der Tabelle, zählt aber nicht</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>As typed; shown in the way of the status bar</source>
        <translation>Wie geschrieben; gezeigt in der Schreibweise der Statusleiste</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Column and row of the map image, from the top left</source>
        <translation>Spalte und Zeile des Kartenbildes, von oben links</translation>
    </message>
    <message>
        <source>Pixel</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>Residual: how far the map puts the position from the point, in pixels</source>
        <translation>Restklaffung: wie weit vom Punkt die Karte die Position hinlegt, in Pixeln</translation>
    </message>
    <message>
        <source>Off by px</source>
        <translation>Rest px</translation>
    </message>
    <message>
        <source>Residual on the ground: from the position to the one read off the map</source>
        <translation>Restklaffung in der Natur: von der Position zu der aus der Karte abgelesenen</translation>
    </message>
    <message>
        <source>Off by</source>
        <translation>Rest</translation>
    </message>
    <message>
        <source>Meridian %1</source>
        <translation>Meridian %1</translation>
    </message>
    <message>
        <source>Parallel %1</source>
        <translation>Breitenkreis %1</translation>
    </message>
    <message>
        <source>The model does not use this kind of point.</source>
        <translation>Das Modell verwendet diese Art von Punkten nicht.</translation>
    </message>
    <message>
        <source>Switched off: it does not count.</source>
        <translation>Ausgeschaltet: Er zählt nicht.</translation>
    </message>
    <message>
        <source>Off by %1 pixels to the right, %2 down, %3 on the ground</source>
        <translation>Klaffung %1 Pixel nach rechts, %2 nach unten, %3 in der Natur</translation>
    </message>
    <message>
        <source>The largest residual of all</source>
        <translation>Die größte aller Klaffungen</translation>
    </message>
    <message>
        <source>%1, counts</source>
        <translation>%1, zählt</translation>
    </message>
    <message>
        <source>%1, switched off</source>
        <translation>%1, ausgeschaltet</translation>
    </message>
    <message>
        <source>%1 pixels, the largest</source>
        <translation>%1 Pixel, die größte</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no pixel. Write column and row, such as 709, 87.</source>
        <translation>„%1“ ist kein Pixel. Schreiben Sie Spalte und Zeile, etwa 709, 87.</translation>
    </message>
</context>
<context>
    <name>zav::CalibrationTool</name>
    <message>
        <source>New point at %1</source>
        <translation>Neuer Punkt bei %1</translation>
    </message>
    <message>
        <source>The line it is on: 50 N is a parallel, 10.5 E a meridian</source>
        <translation>Die Linie, auf der er liegt: 50 N ist ein Breitenkreis, 10.5 E ein Meridian</translation>
    </message>
    <message>
        <source>47.5 8.25   or   47 30 N, 8 15 E   or   32T 470693 5150563</source>
        <translation>47.5 8.25   oder   47 30 N, 8 15 E   oder   32T 470693 5150563</translation>
    </message>
    <message>
        <source>The other points put it %1 pixels from here.</source>
        <translation>Nach den anderen Punkten läge er %1 Pixel von hier.</translation>
    </message>
    <message>
        <source>= %1</source>
        <translation>= %1</translation>
    </message>
    <message>
        <source>= meridian %1</source>
        <translation>= Meridian %1</translation>
    </message>
    <message>
        <source>= parallel %1</source>
        <translation>= Breitenkreis %1</translation>
    </message>
</context>
<context>
    <name>zav::CalibrationWorkbench</name>
    <message>
        <source>Tables (*.csv *.CSV);;All files (*)</source>
        <translation>Tabellen (*.csv *.CSV);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Unsaved Calibration</source>
        <translation>Ungespeicherte Kalibrierung</translation>
    </message>
    <message>
        <source>The calibration of &quot;%1&quot; has been changed.</source>
        <translation>Die Kalibrierung von „%1“ wurde geändert.</translation>
    </message>
    <message>
        <source>Save it? Otherwise the changes are lost.</source>
        <translation>Speichern? Sonst gehen die Änderungen verloren.</translation>
    </message>
    <message>
        <source>Save the Calibration</source>
        <translation>Kalibrierung speichern</translation>
    </message>
    <message>
        <source>Calibrations (*.xml *.XML)</source>
        <translation>Kalibrierungen (*.xml *.XML)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Import Points</source>
        <translation>Punkte importieren</translation>
    </message>
    <message>
        <source>There are points already. Add the new ones to them, or replace them?</source>
        <translation>Es gibt schon Punkte. Die neuen hinzufügen oder die alten ersetzen?</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message numerus="yes">
        <source>%n point(s) now</source>
        <translation>
            <numerusform>Jetzt %n Punkt</numerusform>
            <numerusform>Jetzt %n Punkte</numerusform>
        </translation>
    </message>
    <message>
        <source>Export Points</source>
        <translation>Punkte exportieren</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>%1 geschrieben</translation>
    </message>
    <message>
        <source>Recovered, not saved yet</source>
        <translation>Wiederhergestellt, noch nicht gespeichert</translation>
    </message>
</context>
<context>
    <name>zav::ExportMenu</name>
    <message>
        <source>Save P&amp;icture As</source>
        <translation>B&amp;ild speichern unter</translation>
    </message>
    <message>
        <source>What the &amp;Window Shows...</source>
        <translation>Was das &amp;Fenster zeigt...</translation>
    </message>
    <message>
        <source>The Whole &amp;Map...</source>
        <translation>Die ganze &amp;Karte...</translation>
    </message>
    <message>
        <source>Save Ma&amp;p...</source>
        <translation>&amp;Karte speichern...</translation>
    </message>
    <message>
        <source>Write the image, encoded again, and its calibration as another map</source>
        <translation>Das neu kodierte Bild und seine Kalibrierung als andere Karte schreiben</translation>
    </message>
    <message>
        <source>&amp;Export PDF...</source>
        <translation>PDF e&amp;xportieren...</translation>
    </message>
    <message>
        <source>Copy Picture of the &amp;Window</source>
        <translation>Bild des &amp;Fensters kopieren</translation>
    </message>
    <message>
        <source>Copy Picture of the &amp;Map</source>
        <translation>Bild der &amp;Karte kopieren</translation>
    </message>
    <message>
        <source>%1 picture</source>
        <comment>name of a file</comment>
        <translation>%1 Bild</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>Copied: a picture of %1 x %2 pixels</source>
        <translation>Kopiert: ein Bild von %1 x %2 Pixeln</translation>
    </message>
    <message>
        <source>The picture cannot be copied: %1.</source>
        <translation>Das Bild kann nicht kopiert werden: %1.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; belongs to the map that is shown and is not overwritten. Give the copy another name.</source>
        <translation>„%1“ gehört zur gezeigten Karte und wird nicht überschrieben. Geben Sie der Kopie einen anderen Namen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: %2. Choose another folder or make room on the disk.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2. Wählen Sie einen anderen Ordner oder schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>The map cannot be saved: %1.</source>
        <translation>Die Karte kann nicht gespeichert werden: %1.</translation>
    </message>
    <message>
        <source>Save Map</source>
        <translation>Karte speichern</translation>
    </message>
    <message>
        <source>Write the map as another one?</source>
        <translation>Die Karte als andere Karte schreiben?</translation>
    </message>
    <message>
        <source>The image is encoded again as JPEG of quality 95, so it is not quite the same afterwards, and the calibration is written beside it. The files of the map that is shown stay as they are. To keep only the calibration you have worked on, save the calibration instead: that does not touch the image.</source>
        <translation>Das Bild wird neu als JPEG der Güte 95 kodiert und ist danach nicht ganz dasselbe; die Kalibrierung wird daneben geschrieben. Die Dateien der gezeigten Karte bleiben, wie sie sind. Um nur die bearbeitete Kalibrierung zu behalten, speichern Sie stattdessen die Kalibrierung: Das rührt das Bild nicht an.</translation>
    </message>
    <message>
        <source>Save &amp;Map...</source>
        <translation>&amp;Karte speichern...</translation>
    </message>
    <message>
        <source>Map images (*.jpg)</source>
        <translation>Kartenbilder (*.jpg)</translation>
    </message>
    <message>
        <source>%1 copy</source>
        <comment>name of a file</comment>
        <translation>%1 Kopie</translation>
    </message>
    <message>
        <source>Prin&amp;t and Preview...</source>
        <translation>Drucken mit &amp;Vorschau...</translation>
    </message>
</context>
<context>
    <name>zav::GoToDialog</name>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Los</translation>
    </message>
    <message>
        <source>Go To</source>
        <translation>Gehe zu</translation>
    </message>
    <message>
        <source>Position, country or capital</source>
        <translation>Position, Land oder Hauptstadt</translation>
    </message>
    <message>
        <source>47.5 8.25, 32T 470693 5150563, Austria, Vienna ...</source>
        <translation>47.5 8.25, 32T 470693 5150563, Austria, Vienna ...</translation>
    </message>
    <message>
        <source>What is wrong</source>
        <translation>Was nicht stimmt</translation>
    </message>
    <message>
        <source>A &amp;position in any notation, or a country or capital:</source>
        <translation>Eine &amp;Position in beliebiger Schreibweise, ein Land oder eine Hauptstadt (englisch):</translation>
    </message>
</context>
<context>
    <name>zav::GraticuleMenu</name>
    <message>
        <source>&amp;Automatic</source>
        <translation>&amp;Automatisch</translation>
    </message>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>&amp;Graticule</source>
        <translation>&amp;Gradnetz</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Nichts</translation>
    </message>
    <message>
        <source>Calibration &amp;Points</source>
        <translation>&amp;Passpunkte</translation>
    </message>
    <message>
        <source>&amp;Lines</source>
        <translation>&amp;Linien</translation>
    </message>
    <message>
        <source>Points &amp;and Lines</source>
        <translation>Passpunkte &amp;und Linien</translation>
    </message>
    <message>
        <source>&amp;UTM Grid</source>
        <translation>U&amp;TM-Gitter</translation>
    </message>
    <message>
        <source>Points and UTM &amp;Grid</source>
        <translation>Passpunkte und UTM-&amp;Gitter</translation>
    </message>
    <message>
        <source>&amp;Spacing of the Graticule</source>
        <translation>&amp;Abstand der Netzlinien</translation>
    </message>
    <message>
        <source>&amp;Other...</source>
        <translation>A&amp;nderer...</translation>
    </message>
    <message>
        <source>&amp;Other (%1)...</source>
        <translation>A&amp;nderer (%1)...</translation>
    </message>
    <message>
        <source>Spacing of the Graticule</source>
        <translation>Abstand der Netzlinien</translation>
    </message>
    <message>
        <source>Degrees:</source>
        <translation>Grad:</translation>
    </message>
    <message>
        <source>Spacing of the UTM G&amp;rid</source>
        <translation>Abstan&amp;d der Gitterlinien</translation>
    </message>
    <message>
        <source>Spacing of the UTM Grid</source>
        <translation>Abstand der Gitterlinien</translation>
    </message>
    <message>
        <source>Metres:</source>
        <translation>Meter:</translation>
    </message>
    <message>
        <source>&amp;Color of the Lines...</source>
        <translation>&amp;Farbe der Linien...</translation>
    </message>
    <message>
        <source>Color of the P&amp;oints...</source>
        <translation>Fa&amp;rbe der Punkte...</translation>
    </message>
    <message>
        <source>Color of the &amp;Background...</source>
        <translation>Far&amp;be des Hintergrunds...</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkClasses</name>
    <message>
        <source>Classes of landmarks</source>
        <translation>Klassen der Ortsmarken</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Landmarks</source>
        <translation>Ortsmarken</translation>
    </message>
    <message>
        <source>Show &amp;All</source>
        <translation>&amp;Alle zeigen</translation>
    </message>
    <message>
        <source>Show Onl&amp;y This</source>
        <translation>Nur &amp;diese zeigen</translation>
    </message>
    <message>
        <source>Give Loo&amp;k</source>
        <translation>Aussehen ü&amp;bertragen</translation>
    </message>
    <message>
        <source>All landmarks of the class get the symbol and caption style of the selected landmark, or of new ones</source>
        <translation>Alle Ortsmarken der Klasse bekommen Symbol und Schriftart der ausgewählten Ortsmarke, sonst die der neuen</translation>
    </message>
    <message>
        <source>Delete Cla&amp;ss</source>
        <translation>&amp;Klasse löschen</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkDock</name>
    <message>
        <source>Landmarks</source>
        <translation>Ortsmarken</translation>
    </message>
    <message>
        <source>Classes</source>
        <translation>Klassen</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>Find a caption or identifier</source>
        <translation>Beschriftung oder Kennung suchen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkDocument</name>
    <message>
        <source>Landmark %1</source>
        <translation>Ortsmarke %1</translation>
    </message>
    <message>
        <source>Add landmark</source>
        <translation>Ortsmarke hinzufügen</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;</source>
        <translation>„%1“ löschen</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; holds other things than one set of landmarks, which would be lost. Choose another name.</source>
        <translation>Die Datei „%1“ enthält anderes als einen Satz Ortsmarken, was verloren ginge. Wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot;: %2.</source>
        <translation>Die Datei „%1“: %2.</translation>
    </message>
    <message>
        <source>There is not enough memory for so many landmarks.</source>
        <translation>Für so viele Ortsmarken reicht der Speicher nicht.</translation>
    </message>
    <message numerus="yes">
        <source>Import %n landmark(s)</source>
        <translation>
            <numerusform>%n Ortsmarke importieren</numerusform>
            <numerusform>%n Ortsmarken importieren</numerusform>
        </translation>
    </message>
    <message>
        <source>The unsaved work cannot be read.</source>
        <translation>Die ungespeicherte Arbeit kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Recover unsaved work</source>
        <translation>Ungespeicherte Arbeit wiederherstellen</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkImportDialog</name>
    <message>
        <source>Caption</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Latitude</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Longitude</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Altitude</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Class (0 to 255)</source>
        <translation>Klasse (0 bis 255)</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Kennzahl</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Import Landmarks from &quot;%1&quot;</source>
        <translation>Ortsmarken aus „%1“ importieren</translation>
    </message>
    <message>
        <source>The first lines of the table</source>
        <translation>Die ersten Zeilen der Tabelle</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>Choose the column for each field. What has none is as for new landmarks.</source>
        <translation>Wählen Sie für jedes Feld die Spalte. Was keine hat, ist wie bei neuen Ortsmarken.</translation>
    </message>
    <message>
        <source>(choose)</source>
        <translation>(wählen)</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>&lt;b&gt;%1&lt;/b&gt;</source>
        <translation>&lt;b&gt;%1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>Missing: %1</source>
        <translation>Es fehlt: %1</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Symbol size</source>
        <translation>Symbol: Größe</translation>
    </message>
    <message>
        <source>Symbol color</source>
        <translation>Symbol: Farbe</translation>
    </message>
    <message>
        <source>Symbol fill</source>
        <translation>Symbol: Füllung</translation>
    </message>
    <message>
        <source>Symbol filled</source>
        <translation>Symbol: gefüllt</translation>
    </message>
    <message>
        <source>Symbol direction</source>
        <translation>Symbol: Richtung</translation>
    </message>
    <message>
        <source>Symbol length</source>
        <translation>Symbol: Länge</translation>
    </message>
    <message>
        <source>Caption size</source>
        <translation>Beschriftung: Größe</translation>
    </message>
    <message>
        <source>Caption font</source>
        <translation>Beschriftung: Schrift</translation>
    </message>
    <message>
        <source>Caption style</source>
        <translation>Beschriftung: Stil</translation>
    </message>
    <message>
        <source>Caption color</source>
        <translation>Beschriftung: Farbe</translation>
    </message>
    <message>
        <source>Caption ground</source>
        <translation>Beschriftung: Grund</translation>
    </message>
    <message>
        <source>Caption filled</source>
        <translation>Beschriftung: mit Grund</translation>
    </message>
    <message>
        <source>Caption dx</source>
        <translation>Beschriftung: nach rechts</translation>
    </message>
    <message>
        <source>Caption dy</source>
        <translation>Beschriftung: nach unten</translation>
    </message>
    <message>
        <source>Caption direction</source>
        <translation>Beschriftung: Richtung</translation>
    </message>
    <message>
        <source>Caption halign</source>
        <translation>Beschriftung: waagrecht</translation>
    </message>
    <message>
        <source>Caption valign</source>
        <translation>Beschriftung: senkrecht</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkMenu</name>
    <message>
        <source>&amp;Select and Move</source>
        <translation>&amp;Auswählen und verschieben</translation>
    </message>
    <message>
        <source>Select a landmark by a click, move it by dragging</source>
        <translation>Ortsmarken durch Klick auswählen, durch Ziehen verschieben</translation>
    </message>
    <message>
        <source>Click a landmark: select it. Drag it: move it. Drag elsewhere: move the map</source>
        <translation>Klick auf Ortsmarke: auswählen. Ziehen: verschieben. Ziehen daneben: Karte verschieben</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>Add a landmark by a click</source>
        <translation>Durch Klick eine Ortsmarke hinzufügen</translation>
    </message>
    <message>
        <source>Click: new landmark, then type its caption. Drag: move the map. Esc: end</source>
        <translation>Klick: neue Ortsmarke, dann die Beschriftung tippen. Ziehen: Karte verschieben. Esc: beenden</translation>
    </message>
    <message>
        <source>&amp;Delete by a Click</source>
        <translation>Durch Klick &amp;löschen</translation>
    </message>
    <message>
        <source>Delete landmarks by clicks</source>
        <translation>Ortsmarken durch Klicks löschen</translation>
    </message>
    <message>
        <source>Click a landmark: delete it. Drag: move the map. Esc: end</source>
        <translation>Klick auf Ortsmarke: löschen. Ziehen: Karte verschieben. Esc: beenden</translation>
    </message>
    <message>
        <source>Delete in a C&amp;ircle</source>
        <translation>Im K&amp;reis löschen</translation>
    </message>
    <message>
        <source>Delete the landmarks in a circle of degrees</source>
        <translation>Die Ortsmarken in einem Kreis in Grad löschen</translation>
    </message>
    <message>
        <source>Drag from the middle outwards: what is shown inside is deleted. Esc: end</source>
        <translation>Von der Mitte nach außen ziehen: Was darin gezeigt wird, wird gelöscht. Esc: beenden</translation>
    </message>
    <message>
        <source>Delete in a &amp;Rectangle</source>
        <translation>Im Recht&amp;eck löschen</translation>
    </message>
    <message>
        <source>Delete the landmarks between two parallels and two meridians</source>
        <translation>Die Ortsmarken zwischen zwei Breitenkreisen und zwei Meridianen löschen</translation>
    </message>
    <message>
        <source>Drag across: what is shown inside is deleted. Esc: end</source>
        <translation>Quer aufziehen: Was darin gezeigt wird, wird gelöscht. Esc: beenden</translation>
    </message>
    <message>
        <source>&amp;Landmarks</source>
        <translation>&amp;Ortsmarken</translation>
    </message>
    <message>
        <source>&amp;Edit Landmarks</source>
        <translation>Ortsmarken &amp;bearbeiten</translation>
    </message>
    <message>
        <source>Place, find and change landmarks (F6)</source>
        <translation>Ortsmarken setzen, suchen und ändern (F6)</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Begin anew without landmarks</source>
        <translation>Ohne Ortsmarken neu beginnen</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Öffnen...</translation>
    </message>
    <message>
        <source>Open a file of landmarks</source>
        <translation>Eine Datei mit Ortsmarken öffnen</translation>
    </message>
    <message>
        <source>I&amp;mport...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>Add the lines of a table (CSV) as landmarks</source>
        <translation>Die Zeilen einer Tabelle (CSV) als Ortsmarken hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Save Landmarks</source>
        <translation>Ortsmarken &amp;speichern</translation>
    </message>
    <message>
        <source>Write the file of landmarks</source>
        <translation>Die Datei der Ortsmarken schreiben</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save Landmarks &amp;As...</source>
        <translation>Ortsmarken speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Write the landmarks to another file</source>
        <translation>Die Ortsmarken in eine andere Datei schreiben</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>Rückg&amp;ängig</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Delete &amp;Landmark</source>
        <translation>&amp;Ortsmarke löschen</translation>
    </message>
    <message>
        <source>Delete the selected landmark</source>
        <translation>Die ausgewählte Ortsmarke löschen</translation>
    </message>
    <message>
        <source>Delete All</source>
        <translation>Alle löschen</translation>
    </message>
    <message>
        <source>Delete all landmarks</source>
        <translation>Alle Ortsmarken löschen</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>Su&amp;chen...</translation>
    </message>
    <message>
        <source>Find landmarks by their text</source>
        <translation>Ortsmarken nach ihrem Text suchen</translation>
    </message>
    <message>
        <source>&amp;Classes...</source>
        <translation>&amp;Klassen...</translation>
    </message>
    <message>
        <source>Show, hide and delete classes</source>
        <translation>Klassen zeigen, verbergen und löschen</translation>
    </message>
    <message>
        <source>S&amp;ymbols...</source>
        <translation>S&amp;ymbole...</translation>
    </message>
    <message>
        <source>Change the palette of symbols</source>
        <translation>Die Symbolpalette ändern</translation>
    </message>
    <message>
        <source>Ca&amp;ptions</source>
        <translation>Beschrif&amp;tungen</translation>
    </message>
    <message>
        <source>&amp;Where There Is Room</source>
        <translation>&amp;Wo Platz ist</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Alle</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>Landmarks</source>
        <translation>Ortsmarken</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>Rückg&amp;ängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkPalette</name>
    <message>
        <source>Cross</source>
        <translation>Kreuz</translation>
    </message>
    <message>
        <source>Small cross</source>
        <translation>Kleines Kreuz</translation>
    </message>
    <message>
        <source>Large town</source>
        <translation>Größerer Ort</translation>
    </message>
    <message>
        <source>Town</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Village</source>
        <translation>Dorf</translation>
    </message>
    <message>
        <source>Summit</source>
        <translation>Gipfel</translation>
    </message>
    <message>
        <source>Church</source>
        <translation>Kirche</translation>
    </message>
    <message>
        <source>Forest</source>
        <translation>Wald</translation>
    </message>
    <message>
        <source>Water</source>
        <translation>Wasser</translation>
    </message>
    <message>
        <source>Sight</source>
        <translation>Sehenswürdigkeit</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Gebiet</translation>
    </message>
    <message>
        <source>View to</source>
        <translation>Blick nach</translation>
    </message>
    <message>
        <source>Look here</source>
        <translation>Hier hinsehen</translation>
    </message>
    <message>
        <source>Symbols</source>
        <translation>Symbole</translation>
    </message>
    <message>
        <source>The symbols cannot be saved: %1</source>
        <translation>Die Symbole können nicht gespeichert werden: %1</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkPanel</name>
    <message>
        <source>That is too long for a landmark file, and was cut.</source>
        <translation>Das ist zu lang für eine Ortsmarkendatei und wurde gekürzt.</translation>
    </message>
    <message>
        <source>UTM metres need their zone here, as 32T 470693 5150563.</source>
        <translation>UTM-Meter brauchen hier ihre Zone, etwa 32T 470693 5150563.</translation>
    </message>
    <message>
        <source>Lan&amp;dmark</source>
        <translation>Orts&amp;marke</translation>
    </message>
    <message>
        <source>Sym&amp;bol</source>
        <translation>Sym&amp;bol</translation>
    </message>
    <message>
        <source>Capti&amp;on</source>
        <translation>Beschrif&amp;tung</translation>
    </message>
    <message>
        <source>Captio&amp;n:</source>
        <translation>Besch&amp;riftung:</translation>
    </message>
    <message>
        <source>Caption</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>&amp;Position:</source>
        <translation>&amp;Position:</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Landmarks are shown, hidden and deleted by class, 0 to 255</source>
        <translation>Ortsmarken werden nach Klassen gezeigt, verborgen und gelöscht, 0 bis 255</translation>
    </message>
    <message>
        <source>Cla&amp;ss:</source>
        <translation>&amp;Klasse:</translation>
    </message>
    <message>
        <source>&amp;Identifier:</source>
        <translation>Kenn&amp;ung:</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>&amp;Altitude:</source>
        <translation>&amp;Höhe:</translation>
    </message>
    <message>
        <source>Altitude</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Ti&amp;me:</source>
        <translation>&amp;Zeit:</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>2024-02-29 13:45</source>
        <translation>2024-02-29 13:45</translation>
    </message>
    <message>
        <source>Tag:</source>
        <translation>Kennzahl:</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Kennzahl</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Fo&amp;nt:</source>
        <translation>Schr&amp;ift:</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>Gr&amp;öße:</translation>
    </message>
    <message>
        <source>Size of the caption</source>
        <translation>Größe der Beschriftung</translation>
    </message>
    <message>
        <source>Gro&amp;und</source>
        <translation>Gru&amp;nd</translation>
    </message>
    <message>
        <source>Colour of the caption</source>
        <translation>Farbe der Beschriftung</translation>
    </message>
    <message>
        <source>Ground of the caption</source>
        <translation>Grund der Beschriftung</translation>
    </message>
    <message>
        <source>Colours:</source>
        <translation>Farben:</translation>
    </message>
    <message>
        <source>Caption to the right</source>
        <translation>Beschriftung nach rechts</translation>
    </message>
    <message>
        <source>Caption down</source>
        <translation>Beschriftung nach unten</translation>
    </message>
    <message>
        <source>Right, down:</source>
        <translation>Versatz:</translation>
    </message>
    <message>
        <source>Direction of the caption</source>
        <translation>Richtung der Beschriftung</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>Degrees, counter-clockwise</source>
        <translation>Grad, gegen den Uhrzeigersinn</translation>
    </message>
    <message>
        <source>Tu&amp;rned:</source>
        <translation>Ge&amp;dreht:</translation>
    </message>
    <message>
        <source>B</source>
        <translation>F</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>I</source>
        <translation>K</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <source>U</source>
        <translation>U</translation>
    </message>
    <message>
        <source>Underlined</source>
        <translation>Unterstrichen</translation>
    </message>
    <message>
        <source>S</source>
        <translation>D</translation>
    </message>
    <message>
        <source>Struck out</source>
        <translation>Durchgestrichen</translation>
    </message>
    <message>
        <source>Style:</source>
        <translation>Stil:</translation>
    </message>
    <message>
        <source>Caption across</source>
        <translation>Beschriftung waagrecht</translation>
    </message>
    <message>
        <source>to the right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>to the left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>in the middle</source>
        <translation>mittig</translation>
    </message>
    <message>
        <source>Caption up and down</source>
        <translation>Beschriftung senkrecht</translation>
    </message>
    <message>
        <source>below</source>
        <translation>darunter</translation>
    </message>
    <message>
        <source>beside</source>
        <translation>daneben</translation>
    </message>
    <message>
        <source>above</source>
        <translation>darüber</translation>
    </message>
    <message>
        <source>Place:</source>
        <translation>Lage:</translation>
    </message>
    <message>
        <source>&lt;b&gt;New landmarks&lt;/b&gt; get these values.</source>
        <translation>&lt;b&gt;Neue Ortsmarken&lt;/b&gt; bekommen diese Werte.</translation>
    </message>
    <message>
        <source>&lt;b&gt;The selected landmark&lt;/b&gt;</source>
        <translation>&lt;b&gt;Die ausgewählte Ortsmarke&lt;/b&gt;</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkSymbolsDialog</name>
    <message>
        <source>Symbols</source>
        <translation>Symbole</translation>
    </message>
    <message>
        <source>Symbols of the palette</source>
        <translation>Symbole der Palette</translation>
    </message>
    <message>
        <source>Name of the symbol</source>
        <translation>Name des Symbols</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>A number of your own, to group symbols</source>
        <translation>Eine eigene Zahl, um Symbole zu ordnen</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Load...</source>
        <translation>L&amp;aden...</translation>
    </message>
    <message>
        <source>&amp;Save As...</source>
        <translation>&amp;Speichern unter...</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Cate&amp;gory:</source>
        <translation>Ka&amp;tegorie:</translation>
    </message>
    <message>
        <source>A name cannot hold a double quote.</source>
        <translation>Ein Name kann kein Anführungszeichen enthalten.</translation>
    </message>
    <message>
        <source>The file of the palette cannot keep this shape: it comes back as a diagonal cross.</source>
        <translation>Die Datei der Palette kann diese Form nicht behalten: Sie kommt als schräges Kreuz zurück.</translation>
    </message>
    <message>
        <source>Symbols (*.xml *.XML);;All files (*)</source>
        <translation>Symbole (*.xml *.XML);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save the Symbols</source>
        <translation>Symbole speichern</translation>
    </message>
    <message>
        <source>Load Symbols</source>
        <translation>Symbole laden</translation>
    </message>
    <message>
        <source>There are no symbols in &quot;%1&quot;.</source>
        <translation>In „%1“ sind keine Symbole.</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkTableModel</name>
    <message numerus="yes">
        <source>%Ln landmark(s)</source>
        <translation>
            <numerusform>%Ln Ortsmarke</numerusform>
            <numerusform>%Ln Ortsmarken</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln found</source>
        <translation>
            <numerusform>%Ln gefunden</numerusform>
            <numerusform>%Ln gefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, searching...</source>
        <translation>%1, Suche läuft...</translation>
    </message>
    <message>
        <source>%1, the first %2 of them here</source>
        <translation>%1, hier die ersten %2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
</context>
<context>
    <name>zav::LandmarkTool</name>
    <message>
        <source>&quot;%1&quot; is not on this map.</source>
        <translation>„%1“ liegt nicht auf dieser Karte.</translation>
    </message>
    <message>
        <source>There is no landmark here.</source>
        <translation>Hier ist keine Ortsmarke.</translation>
    </message>
    <message>
        <source>Deleted &quot;%1&quot;</source>
        <translation>„%1“ gelöscht</translation>
    </message>
    <message>
        <source>Landmarks need a position, and this map is not calibrated.</source>
        <translation>Ortsmarken brauchen eine Position, und diese Karte ist nicht kalibriert.</translation>
    </message>
    <message>
        <source>This place has no position on the map.</source>
        <translation>Diese Stelle der Karte hat keine Position.</translation>
    </message>
    <message>
        <source>There is not enough memory for so many landmarks.</source>
        <translation>Für so viele Ortsmarken reicht der Speicher nicht.</translation>
    </message>
    <message>
        <source>Move &quot;%1&quot;</source>
        <translation>„%1“ verschieben</translation>
    </message>
    <message>
        <source>That shape reaches beyond the map.</source>
        <translation>Diese Form reicht über die Karte hinaus.</translation>
    </message>
    <message>
        <source>Delete in a circle</source>
        <translation>Im Kreis löschen</translation>
    </message>
    <message>
        <source>Delete in a rectangle</source>
        <translation>Im Rechteck löschen</translation>
    </message>
    <message numerus="yes">
        <source>Deleted %n landmark(s)</source>
        <translation>
            <numerusform>%n Ortsmarke gelöscht</numerusform>
            <numerusform>%n Ortsmarken gelöscht</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zav::LandmarkWorkbench</name>
    <message>
        <source>Landmarks (*.xml *.XML);;All files (*)</source>
        <translation>Ortsmarken (*.xml *.XML);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Change &quot;%1&quot;</source>
        <translation>„%1“ ändern</translation>
    </message>
    <message>
        <source>The landmarks have been changed.</source>
        <translation>Die Ortsmarken wurden geändert.</translation>
    </message>
    <message>
        <source>The landmarks of &quot;%1&quot; have been changed.</source>
        <translation>Die Ortsmarken von „%1“ wurden geändert.</translation>
    </message>
    <message>
        <source>Unsaved Landmarks</source>
        <translation>Ungespeicherte Ortsmarken</translation>
    </message>
    <message>
        <source>Save them? Otherwise the changes are lost.</source>
        <translation>Speichern? Sonst gehen die Änderungen verloren.</translation>
    </message>
    <message>
        <source>Open Landmarks</source>
        <translation>Ortsmarken öffnen</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; holds other things besides one set of landmarks. They stay as they are: changed landmarks are saved under another name.</source>
        <translation>Die Datei „%1“ enthält außer einem Satz Ortsmarken noch anderes. Das bleibt, wie es ist: Geänderte Ortsmarken werden unter einem anderen Namen gespeichert.</translation>
    </message>
    <message numerus="yes">
        <source>%n landmark(s)</source>
        <translation>
            <numerusform>%n Ortsmarke</numerusform>
            <numerusform>%n Ortsmarken</numerusform>
        </translation>
    </message>
    <message>
        <source>Save the Landmarks</source>
        <translation>Ortsmarken speichern</translation>
    </message>
    <message numerus="yes">
        <source>%n landmark(s) have an upright cross or no shape. The file cannot keep these: they come back as diagonal crosses.</source>
        <translation>
            <numerusform>%n Ortsmarke hat ein aufrechtes Kreuz oder keine Form. Die Datei kann das nicht behalten: Sie kommt als schräges Kreuz zurück.</numerusform>
            <numerusform>%n Ortsmarken haben ein aufrechtes Kreuz oder keine Form. Die Datei kann das nicht behalten: Sie kommen als schräge Kreuze zurück.</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Import Landmarks</source>
        <translation>Ortsmarken importieren</translation>
    </message>
    <message>
        <source>Tables (*.csv *.CSV *.tsv *.txt);;All files (*)</source>
        <translation>Tabellen (*.csv *.CSV *.tsv *.txt);;Alle Dateien (*)</translation>
    </message>
    <message numerus="yes">
        <source>%n landmark(s) imported</source>
        <translation>
            <numerusform>%n Ortsmarke importiert</numerusform>
            <numerusform>%n Ortsmarken importiert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n landmark(s) imported. Not as they are:</source>
        <translation>
            <numerusform>%n Ortsmarke importiert. Nicht unverändert:</numerusform>
            <numerusform>%n Ortsmarken importiert. Nicht unverändert:</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete class %1</source>
        <translation>Klasse %1 löschen</translation>
    </message>
    <message numerus="yes">
        <source>Deleted %n landmark(s)</source>
        <translation>
            <numerusform>%n Ortsmarke gelöscht</numerusform>
            <numerusform>%n Ortsmarken gelöscht</numerusform>
        </translation>
    </message>
    <message>
        <source>Look of class %1</source>
        <translation>Aussehen der Klasse %1</translation>
    </message>
    <message numerus="yes">
        <source>Changed %n landmark(s)</source>
        <translation>
            <numerusform>%n Ortsmarke geändert</numerusform>
            <numerusform>%n Ortsmarken geändert</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete all</source>
        <translation>Alle löschen</translation>
    </message>
    <message>
        <source>Recovered, not saved yet</source>
        <translation>Wiederhergestellt, noch nicht gespeichert</translation>
    </message>
</context>
<context>
    <name>zav::LayerDock</name>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Datenbanken</translation>
    </message>
    <message>
        <source>About the item</source>
        <translation>Über das Objekt</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Öffnen...</translation>
    </message>
    <message>
        <source>Lay a database over the map</source>
        <translation>Eine Datenbank über die Karte legen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Take the marked database away</source>
        <translation>Die markierte Datenbank wegnehmen</translation>
    </message>
    <message>
        <source>What is shown</source>
        <translation>Was gezeigt wird</translation>
    </message>
    <message>
        <source>Find a name or a part of it</source>
        <translation>Namen oder einen Teil davon suchen</translation>
    </message>
    <message>
        <source>Find in databases</source>
        <translation>In Datenbanken suchen</translation>
    </message>
    <message>
        <source>Found items</source>
        <translation>Gefundene Objekte</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message numerus="yes">
        <source>%1 (%Ln item(s))</source>
        <translation>
            <numerusform>%1 (%Ln Objekt)</numerusform>
            <numerusform>%1 (%Ln Objekte)</numerusform>
        </translation>
    </message>
    <message>
        <source>Colour of %1</source>
        <translation>Farbe von %1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln point(s)</source>
        <translation>
            <numerusform>%Ln Punkt</numerusform>
            <numerusform>%Ln Punkte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln byte(s)</source>
        <translation>
            <numerusform>%Ln Byte</numerusform>
            <numerusform>%Ln Byte</numerusform>
        </translation>
    </message>
    <message>
        <source>Altitude %1 m</source>
        <translation>Höhe %1 m</translation>
    </message>
    <message>
        <source>Class %1, item %2</source>
        <translation>Klasse %1, Objekt %2</translation>
    </message>
    <message>
        <source>What is shown; a double click or Enter chooses the colour</source>
        <translation>Was gezeigt wird; Doppelklick oder Eingabetaste wählt die Farbe</translation>
    </message>
</context>
<context>
    <name>zav::Layers</name>
    <message>
        <source>The database &quot;%1&quot; cannot be opened: %2</source>
        <translation>Die Datenbank „%1“ kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The databases cannot be read any more: %1</source>
        <translation>Die Datenbanken können nicht mehr gelesen werden: %1</translation>
    </message>
</context>
<context>
    <name>zav::MainWindow</name>
    <message>
        <source>There is no map in the folder &quot;%1&quot;. Maps are calibration files (.xml) and images (.jpg, .jpeg, .bmp).</source>
        <translation>Im Ordner „%1“ ist keine Karte. Karten sind Kalibrierungsdateien (.xml) und Bilder (.jpg, .jpeg, .bmp).</translation>
    </message>
    <message>
        <source>This map has no UTM grid: it is not calibrated in UTM. Choose lines instead.</source>
        <translation>Diese Karte hat kein UTM-Gitter: Sie ist nicht in UTM kalibriert. Wählen Sie stattdessen Linien.</translation>
    </message>
    <message>
        <source>A position cannot be found on this map: it is not calibrated.</source>
        <translation>Auf dieser Karte ist keine Position zu finden: Sie ist nicht kalibriert.</translation>
    </message>
    <message>
        <source>The position %1 is not on this map.</source>
        <translation>Die Position %1 liegt nicht auf dieser Karte.</translation>
    </message>
    <message>
        <source>The picture &quot;%1&quot; cannot be written: %2.</source>
        <translation>Das Bild „%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Copied: %1</source>
        <translation>Kopiert: %1</translation>
    </message>
    <message>
        <source>Pixel %1</source>
        <translation>Pixel %1</translation>
    </message>
    <message>
        <source>zavgeo viewer</source>
        <translation>zavgeo-Kartenbetrachter</translation>
    </message>
    <message>
        <source>%1[*] - zavgeo viewer</source>
        <translation>%1[*] – zavgeo-Kartenbetrachter</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>&amp;Copy %1</source>
        <translation>%1 &amp;kopieren</translation>
    </message>
    <message>
        <source>Copy P&amp;ixel %1</source>
        <translation>P&amp;ixel %1 kopieren</translation>
    </message>
    <message>
        <source>Bring &amp;Here to the Middle</source>
        <translation>Diese &amp;Stelle in die Mitte</translation>
    </message>
    <message>
        <source>Save List of &amp;Maps As...</source>
        <translation>Kart&amp;enliste speichern unter...</translation>
    </message>
    <message>
        <source>Write the names of the maps to a file that opens them all</source>
        <translation>Die Namen der Karten in eine Datei schreiben, die alle öffnet</translation>
    </message>
    <message>
        <source>&amp;More Detailed Map</source>
        <translation>&amp;Feinere Karte</translation>
    </message>
    <message>
        <source>L&amp;ess Detailed Map</source>
        <translation>Gr&amp;öbere Karte</translation>
    </message>
    <message>
        <source>No map of this place is more detailed</source>
        <translation>Keine Karte dieser Stelle ist feiner</translation>
    </message>
    <message>
        <source>No map of this place is less detailed</source>
        <translation>Keine Karte dieser Stelle ist gröber</translation>
    </message>
    <message>
        <source>&amp;Go to Other Maps by Clicks</source>
        <translation>Durch Kli&amp;cks zu anderen Karten</translation>
    </message>
    <message>
        <source>Click: a more detailed map of the place; right button: a less detailed one (G)</source>
        <translation>Klick: eine feinere Karte der Stelle; rechte Taste: eine gröbere (G)</translation>
    </message>
    <message>
        <source>Click: a more detailed map of the place. Right button: a less detailed one. Esc: end</source>
        <translation>Klick: eine feinere Karte der Stelle. Rechte Taste: eine gröbere. Esc: beenden</translation>
    </message>
    <message>
        <source>Only the first %1 of %2 maps are gone to by clicks and the wheel; the list holds all.</source>
        <translation>Durch Klicks und Rad sind nur die ersten %1 von %2 Karten zu erreichen; die Liste enthält alle.</translation>
    </message>
    <message>
        <source>atlas</source>
        <comment>name of a file</comment>
        <translation>atlas</translation>
    </message>
    <message>
        <source>Save the List of Maps</source>
        <translation>Kartenliste speichern</translation>
    </message>
    <message>
        <source>Lists of maps (*%1)</source>
        <translation>Kartenlisten (*%1)</translation>
    </message>
    <message>
        <source>The list of maps &quot;%1&quot; cannot be written: %2. Choose another folder.</source>
        <translation>Die Kartenliste „%1“ kann nicht geschrieben werden: %2. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>Save the calibration before you go to another map</source>
        <translation>Speichern Sie die Kalibrierung, bevor Sie zu einer anderen Karte gehen</translation>
    </message>
    <message>
        <source>&amp;New Map...</source>
        <translation>&amp;Neue Karte...</translation>
    </message>
    <message>
        <source>Make a map of parallels and meridians (%1)</source>
        <translation>Eine Karte aus Breitenkreisen und Meridianen erzeugen (%1)</translation>
    </message>
    <message>
        <source>&amp;Go To...</source>
        <translation>&amp;Gehe zu...</translation>
    </message>
    <message>
        <source>New Map</source>
        <translation>Neue Karte</translation>
    </message>
    <message>
        <source>map.xml</source>
        <translation>karte.xml</translation>
    </message>
    <message>
        <source>Calibration files, with the image beside them (*.xml)</source>
        <translation>Kalibrierungsdateien, das Bild daneben (*.xml)</translation>
    </message>
    <message>
        <source>There is an image &quot;%1&quot; already; choose another name.</source>
        <translation>Es gibt schon ein Bild „%1“; wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>The map is not calibrated.</source>
        <translation>Die Karte ist nicht kalibriert.</translation>
    </message>
    <message>
        <source>%1 is not on this map.</source>
        <translation>%1 liegt nicht auf dieser Karte.</translation>
    </message>
    <message>
        <source>Open &amp;Database...</source>
        <translation>&amp;Datenbank öffnen...</translation>
    </message>
    <message>
        <source>Lay a geographic database over the map</source>
        <translation>Eine geographische Datenbank über die Karte legen</translation>
    </message>
    <message>
        <source>&amp;Databases</source>
        <translation>&amp;Datenbanken</translation>
    </message>
    <message>
        <source>Fi&amp;nd in Databases</source>
        <translation>In Datenbanken &amp;suchen</translation>
    </message>
    <message>
        <source>Open Databases</source>
        <translation>Datenbanken öffnen</translation>
    </message>
    <message>
        <source>Databases (*.zavgds *.ZAVGDS);;All files (*)</source>
        <translation>Datenbanken (*.zavgds *.ZAVGDS);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>A database is seen over a calibrated map: open one</source>
        <translation>Eine Datenbank sieht man über einer kalibrierten Karte: Öffnen Sie eine</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>No map is open. Open one with Ctrl+O, or drop files or a folder here.</source>
        <translation>Keine Karte ist offen. Öffnen Sie eine mit Strg+O oder ziehen Sie Dateien oder einen Ordner hierher.</translation>
    </message>
    <message>
        <source>Maps</source>
        <translation>Karten</translation>
    </message>
    <message>
        <source>Magnification: screen pixels for each pixel of the map</source>
        <translation>Vergrößerung: Bildschirmpixel je Pixel der Karte</translation>
    </message>
    <message>
        <source>Scale on this screen, along the middle row of the map</source>
        <translation>Maßstab auf diesem Bildschirm, entlang der mittleren Kartenzeile</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Öffnen...</translation>
    </message>
    <message>
        <source>Open a calibration file or an image (Ctrl+O)</source>
        <translation>Eine Kalibrierungsdatei oder ein Bild öffnen (Strg+O)</translation>
    </message>
    <message>
        <source>Open &amp;Folder...</source>
        <translation>O&amp;rdner öffnen...</translation>
    </message>
    <message>
        <source>Open all maps of a folder (Ctrl+Shift+O)</source>
        <translation>Alle Karten eines Ordners öffnen (Strg+Umschalt+O)</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Copy Position</source>
        <translation>&amp;Position kopieren</translation>
    </message>
    <message>
        <source>Copy P&amp;ixel</source>
        <translation>P&amp;ixel kopieren</translation>
    </message>
    <message>
        <source>&amp;List of Maps</source>
        <translation>Karten&amp;liste</translation>
    </message>
    <message>
        <source>Show the list of maps (F9)</source>
        <translation>Die Kartenliste zeigen (F9)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Graticule, grid and calibration points</source>
        <translation>Gradnetz, Gitter und Passpunkte</translation>
    </message>
    <message>
        <source>Graticule</source>
        <translation>Gradnetz</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Noch keine</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>Liste &amp;leeren</translation>
    </message>
    <message>
        <source>Open Maps</source>
        <translation>Karten öffnen</translation>
    </message>
    <message>
        <source>Maps (*.xml *.XML *.jpg *.JPG *.jpeg *.JPEG *.bmp *.BMP *.zavatlas);;Scans of other kinds (*.png *.PNG *.tif *.TIF *.tiff *.TIFF);;All files (*)</source>
        <translation>Karten (*.xml *.XML *.jpg *.JPG *.jpeg *.JPEG *.bmp *.BMP *.zavatlas);;Scans anderer Art (*.png *.PNG *.tif *.TIF *.tiff *.TIFF);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open a Folder of Maps</source>
        <translation>Einen Ordner mit Karten öffnen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;zavgeo viewer %1&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Shows calibrated maps and reads positions off them.&lt;/p&gt;&lt;p&gt;Wheel: zoom at the mouse. Drag: move the map. Click on the position in the status bar: another way to write it.&lt;/p&gt;&lt;p&gt;MIT licence.&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;zavgeo-Kartenbetrachter %1&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Zeigt kalibrierte Karten und liest Positionen ab.&lt;/p&gt;&lt;p&gt;Rad: bei der Maus zoomen. Ziehen: Karte verschieben. Klick auf die Position in der Statusleiste: eine andere Schreibweise.&lt;/p&gt;&lt;p&gt;MIT-Lizenz.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>O&amp;utlines of Other Maps</source>
        <translation>&amp;Umrisse anderer Karten</translation>
    </message>
    <message>
        <source>Unsaved work would be lost in a crash, because it cannot be kept: %1</source>
        <translation>Ungespeicherte Arbeit ginge bei einem Absturz verloren, denn sie kann nicht aufbewahrt werden: %1</translation>
    </message>
    <message>
        <source>Unsaved work that was kept before a crash is damaged and cannot be recovered. It was put aside: %1</source>
        <translation>Ungespeicherte Arbeit, die vor einem Absturz aufbewahrt wurde, ist beschädigt und kann nicht wiederhergestellt werden. Sie wurde beiseitegelegt: %1</translation>
    </message>
    <message>
        <source>The viewer ended before the calibration of &quot;%1&quot; was saved (%2).</source>
        <translation>Das Programm endete, bevor die Kalibrierung von „%1“ gespeichert war (%2).</translation>
    </message>
    <message>
        <source>The viewer ended before the landmarks were saved (%1).</source>
        <translation>Das Programm endete, bevor die Ortsmarken gespeichert waren (%1).</translation>
    </message>
    <message>
        <source>The viewer ended before the landmarks of &quot;%1&quot; were saved (%2).</source>
        <translation>Das Programm endete, bevor die Ortsmarken von „%1“ gespeichert waren (%2).</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; has been changed since. It stays as it is until you save the recovered work.</source>
        <translation>Die Datei „%1“ wurde seitdem geändert. Sie bleibt, wie sie ist, bis Sie die wiederhergestellte Arbeit speichern.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>Pointer b&amp;y Keys</source>
        <translation>Zeiger mit &amp;Tasten</translation>
    </message>
    <message>
        <source>Do what the mouse does on the map with the arrow keys and Enter (K)</source>
        <translation>Mit Pfeiltasten und Eingabetaste tun, was die Maus auf der Karte tut (K)</translation>
    </message>
    <message>
        <source>Arrows: move. Shift: farther. Enter: click. Shift+Enter: drag. K: end</source>
        <translation>Pfeile: bewegen. Umschalt: weiter. Eingabe: Klick. Umschalt+Eingabe: ziehen. K: beenden</translation>
    </message>
</context>
<context>
    <name>zav::MapList</name>
    <message>
        <source>cannot be shown</source>
        <translation>kann nicht gezeigt werden</translation>
    </message>
    <message>
        <source>%1, %2 x %3, %4</source>
        <translation>%1, %2 x %3, %4</translation>
    </message>
    <message>
        <source>%1 x %2, %3</source>
        <translation>%1 x %2, %3</translation>
    </message>
</context>
<context>
    <name>zav::MeasureTool</name>
    <message>
        <source>%1 towards %2°</source>
        <translation>%1 Richtung %2°</translation>
    </message>
    <message numerus="yes">
        <source>Last piece %1, all %n pieces %2</source>
        <translation>
            <numerusform>Letztes Stück %1, %n Stück zusammen %2</numerusform>
            <numerusform>Letztes Stück %1, alle %n Stücke %2</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, encloses %2</source>
        <translation>%1, umschließt %2</translation>
    </message>
</context>
<context>
    <name>zav::MessageBar</name>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close this message (Esc)</source>
        <translation>Diese Meldung schließen (Esc)</translation>
    </message>
</context>
<context>
    <name>zav::NewMapDialog</name>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>South</source>
        <translation>Süd</translation>
    </message>
    <message>
        <source>West</source>
        <translation>West</translation>
    </message>
    <message>
        <source>North</source>
        <translation>Nord</translation>
    </message>
    <message>
        <source>East</source>
        <translation>Ost</translation>
    </message>
    <message>
        <source>Between parallels</source>
        <translation>Abstand der Breitenkreise</translation>
    </message>
    <message>
        <source>Between meridians</source>
        <translation>Abstand der Meridiane</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>&amp;Height as on the ground, in the middle</source>
        <translation>&amp;Höhe wie in der Natur, in der Mitte</translation>
    </message>
    <message>
        <source>&amp;Create...</source>
        <translation>&amp;Erzeugen...</translation>
    </message>
    <message>
        <source>New Map</source>
        <translation>Neue Karte</translation>
    </message>
    <message>
        <source>&amp;North:</source>
        <translation>&amp;Nord:</translation>
    </message>
    <message>
        <source>&amp;South:</source>
        <translation>&amp;Süd:</translation>
    </message>
    <message>
        <source>&amp;West:</source>
        <translation>&amp;West:</translation>
    </message>
    <message>
        <source>&amp;East:</source>
        <translation>&amp;Ost:</translation>
    </message>
    <message>
        <source>Between &amp;parallels:</source>
        <translation>A&amp;bstand der Breitenkreise:</translation>
    </message>
    <message>
        <source>Between &amp;meridians:</source>
        <translation>Abstand der &amp;Meridiane:</translation>
    </message>
    <message>
        <source>W&amp;idth:</source>
        <translation>B&amp;reite:</translation>
    </message>
    <message>
        <source>Hei&amp;ght:</source>
        <translation>Höh&amp;e:</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>South must be below north.</source>
        <translation>Süd muss kleiner als Nord sein.</translation>
    </message>
    <message>
        <source>West must be below east. A map across 180° goes on beyond it: 170 to 190.</source>
        <translation>West muss kleiner als Ost sein. Eine Karte über 180° hinweg zählt weiter: 170 bis 190.</translation>
    </message>
    <message>
        <source>The map would have %1 pixels, and may have %2.</source>
        <translation>Die Karte hätte %1 Pixel und darf %2 haben.</translation>
    </message>
</context>
<context>
    <name>zav::PrintDialog</name>
    <message>
        <source>Print Map</source>
        <translation>Karte drucken</translation>
    </message>
    <message>
        <source>The whole map</source>
        <translation>Die ganze Karte</translation>
    </message>
    <message>
        <source>What the window shows</source>
        <translation>Was das Fenster zeigt</translation>
    </message>
    <message>
        <source>As large as the page holds</source>
        <translation>So groß, wie die Seite fasst</translation>
    </message>
    <message>
        <source>Choose a scale or type one, such as 1:30,000</source>
        <translation>Einen Maßstab wählen oder schreiben, etwa 1:30.000</translation>
    </message>
    <message>
        <source>The scale of this map is not known: it is not calibrated</source>
        <translation>Der Maßstab dieser Karte ist unbekannt: Sie ist nicht kalibriert</translation>
    </message>
    <message>
        <source>Upright</source>
        <translation>Hochformat</translation>
    </message>
    <message>
        <source>Across</source>
        <translation>Querformat</translation>
    </message>
    <message>
        <source>Caption, scale and scale bar</source>
        <translation>Titel, Maßstab und Maßstabsleiste</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken...</translation>
    </message>
    <message>
        <source>Save P&amp;DF...</source>
        <translation>&amp;PDF speichern...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Maßstab</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>There is nothing to print: no part of a map is shown.</source>
        <translation>Es gibt nichts zu drucken: Kein Teil einer Karte wird gezeigt.</translation>
    </message>
    <message>
        <source>This is no scale. Write it as 1:25,000. The map is now as large as the page holds.</source>
        <translation>Das ist kein Maßstab. Schreiben Sie ihn wie 1:25.000. Die Karte ist jetzt so groß, wie die Seite fasst.</translation>
    </message>
    <message>
        <source>At %1 the page holds only the middle of it. Choose larger paper or a smaller scale, or show in the window what is to be printed.</source>
        <translation>Bei %1 fasst die Seite nur die Mitte. Wählen Sie größeres Papier oder einen kleineren Maßstab oder zeigen Sie im Fenster, was gedruckt werden soll.</translation>
    </message>
    <message>
        <source>The map has the scale %1, measured along its middle row.</source>
        <translation>Die Karte hat den Maßstab %1, gemessen entlang ihrer mittleren Zeile.</translation>
    </message>
    <message>
        <source>The map will have a scale of about %1.</source>
        <translation>Die Karte bekommt einen Maßstab von etwa %1.</translation>
    </message>
    <message>
        <source>The scale is not known: the map is not calibrated.</source>
        <translation>Der Maßstab ist unbekannt: Die Karte ist nicht kalibriert.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: %2. Choose another folder or make room on the disk.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2. Wählen Sie einen anderen Ordner oder schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
    <message>
        <source>The map cannot be printed: %1.</source>
        <translation>Die Karte kann nicht gedruckt werden: %1.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; belongs to the map that is shown. Give the PDF another name.</source>
        <translation>„%1“ gehört zur gezeigten Karte. Geben Sie der PDF-Datei einen anderen Namen.</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>Printed.</source>
        <translation>Gedruckt.</translation>
    </message>
    <message>
        <source>Save PDF</source>
        <translation>PDF speichern</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
</context>
<context>
    <name>zav::ReadoutButton</name>
    <message>
        <source>&amp;Position As</source>
        <translation>S&amp;chreibweise der Position</translation>
    </message>
    <message>
        <source>Position under the mouse. Click for the next way to write it, right-click to choose.</source>
        <translation>Position unter der Maus. Klick: nächste Schreibweise; rechte Taste: auswählen.</translation>
    </message>
    <message>
        <source>Position under the mouse</source>
        <translation>Position unter der Maus</translation>
    </message>
    <message>
        <source>Position: %1</source>
        <translation>Position: %1</translation>
    </message>
</context>
<context>
    <name>zav::SelectionTool</name>
    <message>
        <source>Selected rectangle</source>
        <translation>Ausgewähltes Rechteck</translation>
    </message>
    <message>
        <source>Copy Corners</source>
        <translation>Ecken kopieren</translation>
    </message>
    <message>
        <source>Copy the corners as text, written like the position in the status bar</source>
        <translation>Die Ecken als Text kopieren, geschrieben wie die Position in der Statusleiste</translation>
    </message>
    <message>
        <source>Save as Picture...</source>
        <translation>Als Bild speichern...</translation>
    </message>
    <message>
        <source>Save this part of the map as a picture</source>
        <translation>Diesen Teil der Karte als Bild speichern</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoomen</translation>
    </message>
    <message>
        <source>Fill the window with it</source>
        <translation>Das Fenster damit füllen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Select nothing (Esc)</source>
        <translation>Nichts auswählen (Esc)</translation>
    </message>
    <message>
        <source>That rectangle lies beside the map.</source>
        <translation>Dieses Rechteck liegt neben der Karte.</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 Pixel</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
</context>
<context>
    <name>zav::SymbolEditor</name>
    <message>
        <source>Upright cross</source>
        <translation>Aufrechtes Kreuz</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Quadrat</translation>
    </message>
    <message>
        <source>Triangle</source>
        <translation>Dreieck</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>Arrow from here</source>
        <translation>Pfeil von hier</translation>
    </message>
    <message>
        <source>Arrow to here</source>
        <translation>Pfeil hierher</translation>
    </message>
    <message>
        <source>Crossed square</source>
        <translation>Quadrat mit Kreuz</translation>
    </message>
    <message>
        <source>Diamond</source>
        <translation>Raute</translation>
    </message>
    <message>
        <source>Diagonal cross</source>
        <translation>Schräges Kreuz</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Colour of the symbol</source>
        <translation>Farbe des Symbols</translation>
    </message>
    <message>
        <source>Fill of the symbol</source>
        <translation>Füllung des Symbols</translation>
    </message>
    <message>
        <source>F&amp;illed</source>
        <translation>Ge&amp;füllt</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Sha&amp;pe:</source>
        <translation>F&amp;orm:</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>Gr&amp;öße:</translation>
    </message>
    <message>
        <source>Colours:</source>
        <translation>Farben:</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>Degrees from up to the right: of arrows and triangles</source>
        <translation>Grad von oben nach rechts: bei Pfeilen und Dreiecken</translation>
    </message>
    <message>
        <source>Di&amp;rection:</source>
        <translation>&amp;Richtung:</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Of arrows</source>
        <translation>Bei Pfeilen</translation>
    </message>
    <message>
        <source>Le&amp;ngth:</source>
        <translation>Län&amp;ge:</translation>
    </message>
</context>
<context>
    <name>zav::ToolMenu</name>
    <message>
        <source>&amp;Move the Map</source>
        <translation>Karte &amp;verschieben</translation>
    </message>
    <message>
        <source>Move the map</source>
        <translation>Karte verschieben</translation>
    </message>
    <message>
        <source>Move &amp;Left and Right</source>
        <translation>Nach &amp;links und rechts schieben</translation>
    </message>
    <message>
        <source>Move the map to the left and right only</source>
        <translation>Die Karte nur nach links und rechts schieben</translation>
    </message>
    <message>
        <source>Drag: move the map to the left and right</source>
        <translation>Ziehen: die Karte nach links und rechts schieben</translation>
    </message>
    <message>
        <source>Move &amp;Up and Down</source>
        <translation>Nach &amp;oben und unten schieben</translation>
    </message>
    <message>
        <source>Move the map up and down only</source>
        <translation>Die Karte nur nach oben und unten schieben</translation>
    </message>
    <message>
        <source>Drag: move the map up and down</source>
        <translation>Ziehen: die Karte nach oben und unten schieben</translation>
    </message>
    <message>
        <source>&amp;Zoom to a Box</source>
        <translation>Auf Ausschnitt &amp;zoomen</translation>
    </message>
    <message>
        <source>Drag a box that then fills the window</source>
        <translation>Einen Ausschnitt aufziehen, der dann das Fenster füllt</translation>
    </message>
    <message>
        <source>Drag a box: it fills the window. Right button or Esc: give it up</source>
        <translation>Ausschnitt aufziehen: Er füllt das Fenster. Rechte Taste oder Esc: abbrechen</translation>
    </message>
    <message>
        <source>Zoom by &amp;Dragging</source>
        <translation>Durch Ziehen zoo&amp;men</translation>
    </message>
    <message>
        <source>Zoom by dragging up and down</source>
        <translation>Durch Ziehen nach oben und unten zoomen</translation>
    </message>
    <message>
        <source>Drag up: enlarge; down: make smaller. The middle stays</source>
        <translation>Nach oben ziehen: vergrößern; nach unten: verkleinern. Die Mitte bleibt</translation>
    </message>
    <message>
        <source>M&amp;easure Lengths</source>
        <translation>&amp;Strecken messen</translation>
    </message>
    <message>
        <source>Measure lengths, directions and areas</source>
        <translation>Strecken, Richtungen und Flächen messen</translation>
    </message>
    <message>
        <source>Click: begin and end a line. Ctrl and click: another piece, three points have an area. Backspace: take a point back. Esc: give it up</source>
        <translation>Klick: Linie beginnen und beenden. Strg und Klick: weiteres Stück, ab drei Punkten mit Fläche. Rücktaste: Punkt zurücknehmen. Esc: abbrechen</translation>
    </message>
    <message>
        <source>Select a &amp;Rectangle</source>
        <translation>&amp;Rechteck auswählen</translation>
    </message>
    <message>
        <source>Select a rectangle, to copy its corners or to save it as a picture</source>
        <translation>Ein Rechteck auswählen, um seine Ecken zu kopieren oder es als Bild zu speichern</translation>
    </message>
    <message>
        <source>Drag a rectangle: copy its corners, save it as a picture, zoom to it</source>
        <translation>Rechteck aufziehen: Ecken kopieren, als Bild speichern, darauf zoomen</translation>
    </message>
    <message>
        <source>&amp;Trace</source>
        <translation>S&amp;pur zeichnen</translation>
    </message>
    <message>
        <source>Draw a line along a road or river and measure it</source>
        <translation>Eine Linie entlang einer Straße oder eines Flusses ziehen und messen</translation>
    </message>
    <message>
        <source>Drag along a road or river: its length is told. Shift+Esc clears the trace</source>
        <translation>Entlang einer Straße oder eines Flusses ziehen: Die Länge wird angezeigt. Umschalt+Esc löscht die Spur</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Copy Length</source>
        <translation>Länge &amp;kopieren</translation>
    </message>
    <message>
        <source>Clear measured lines, the selected rectangle and the trace (%1)</source>
        <translation>Gemessene Linien, ausgewähltes Rechteck und Spur löschen (%1)</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Werkzeug</translation>
    </message>
    <message>
        <source>A map is shown at 200 % at most</source>
        <translation>Eine Karte wird mit höchstens 200 % gezeigt</translation>
    </message>
    <message>
        <source>A map is shown at 50 % at least</source>
        <translation>Eine Karte wird mit mindestens 50 % gezeigt</translation>
    </message>
    <message>
        <source>Copy &amp;Area</source>
        <translation>&amp;Fläche kopieren</translation>
    </message>
    <message>
        <source>Clear Li&amp;nes and Trace</source>
        <translation>Linien &amp;und Spur löschen</translation>
    </message>
</context>
<context>
    <name>zav::TraceTool</name>
    <message>
        <source>The trace is full with %1; clear it to draw on</source>
        <translation>Die Spur ist mit %1 voll; löschen Sie sie, um weiterzuzeichnen</translation>
    </message>
    <message>
        <source>Trace %1</source>
        <translation>Spur %1</translation>
    </message>
</context>
<context>
    <name>zav::ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>&amp;Whole Map</source>
        <translation>Gan&amp;ze Karte</translation>
    </message>
    <message>
        <source>Show the whole map</source>
        <translation>Die ganze Karte zeigen</translation>
    </message>
    <message>
        <source>&amp;Actual Size</source>
        <translation>&amp;Originalgröße</translation>
    </message>
    <message>
        <source>Show the map at its own size, 100 %</source>
        <translation>Die Karte in ihrer eigenen Größe zeigen, 100 %</translation>
    </message>
    <message>
        <source>View &amp;Before</source>
        <translation>&amp;Vorherige Ansicht</translation>
    </message>
    <message>
        <source>The view before</source>
        <translation>Die vorherige Ansicht</translation>
    </message>
    <message>
        <source>View A&amp;fter</source>
        <translation>&amp;Nächste Ansicht</translation>
    </message>
    <message>
        <source>The view after</source>
        <translation>Die nächste Ansicht</translation>
    </message>
    <message>
        <source>&amp;Smooth Scaling</source>
        <translation>&amp;Weich skalieren</translation>
    </message>
    <message>
        <source>&amp;Keep Inside the Map</source>
        <translation>&amp;In der Karte bleiben</translation>
    </message>
    <message>
        <source>F&amp;rame</source>
        <translation>&amp;Rahmen</translation>
    </message>
    <message>
        <source>No &amp;Frame</source>
        <translation>&amp;Kein Rahmen</translation>
    </message>
    <message>
        <source>&amp;Sunken</source>
        <translation>&amp;Vertieft</translation>
    </message>
    <message>
        <source>&amp;Raised</source>
        <translation>&amp;Erhaben</translation>
    </message>
    <message>
        <source>Single &amp;Line</source>
        <translation>Einfache &amp;Linie</translation>
    </message>
    <message>
        <source>&amp;Etched</source>
        <translation>Ei&amp;ngekerbt</translation>
    </message>
</context>
</TS>
