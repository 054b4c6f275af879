<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>CameraSession</name>
    <message>
        <source>The acquisition could not be started. %1</source>
        <translation>Die Bildaufnahme konnte nicht gestartet werden. %1</translation>
    </message>
    <message>
        <source>The acquisition did not stop cleanly. %1</source>
        <translation>Die Bildaufnahme wurde nicht sauber beendet. %1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows a camera&apos;s live image, and the tab extensions that support the camera.
Without --camera and --simulate it starts a simulated camera of its own.</source>
        <translation>Zeigt das Livebild einer Kamera und die Tab-Erweiterungen, die die Kamera unterstützen.
Ohne --camera und --simulate wird eine eigene simulierte Kamera gestartet.</translation>
    </message>
    <message>
        <source>
Exit codes:
  %1  success
  %2  bad arguments
  %3  no camera found, or it could not be opened
  %4  a file in the plugins folder could not be used
  %5  the screenshot could not be written
  %6  no display
</source>
        <translation>
Rückgabewerte:
  %1  Erfolg
  %2  falsche Argumente
  %3  keine Kamera gefunden, oder sie konnte nicht geöffnet werden
  %4  eine Datei im Plugin-Ordner konnte nicht verwendet werden
  %5  der Screenshot konnte nicht geschrieben werden
  %6  keine Anzeige
</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;.</source>
        <translation>Unerwartetes Argument „%1“.</translation>
    </message>
    <message>
        <source>--camera and --simulate exclude each other.</source>
        <translation>--camera und --simulate schließen einander aus.</translation>
    </message>
    <message>
        <source>--camera needs an id, a serial number, an address or &quot;first&quot;.</source>
        <translation>--camera braucht eine Kennung, eine Seriennummer, eine Adresse oder „first“.</translation>
    </message>
    <message>
        <source>There is no simulated model &quot;%1&quot;. Known models: %2.</source>
        <translation>Es gibt kein simuliertes Modell „%1“. Bekannte Modelle: %2.</translation>
    </message>
    <message>
        <source>--acquire takes &quot;on&quot; or &quot;off&quot;, not &quot;%1&quot;.</source>
        <translation>--acquire erwartet „on“ oder „off“, nicht „%1“.</translation>
    </message>
    <message>
        <source>There is no folder &quot;%1&quot;.</source>
        <translation>Es gibt keinen Ordner „%1“.</translation>
    </message>
    <message>
        <source>--screenshot needs the name of a file.</source>
        <translation>--screenshot braucht einen Dateinamen.</translation>
    </message>
    <message>
        <source>--delay is for --screenshot only.</source>
        <translation>--delay gilt nur zusammen mit --screenshot.</translation>
    </message>
    <message>
        <source>--delay takes 0 to 60000 milliseconds, not &quot;%1&quot;.</source>
        <translation>--delay erwartet 0 bis 60000 Millisekunden, nicht „%1“.</translation>
    </message>
    <message>
        <source>--size takes a size from 640x480 to 7680x4320, not &quot;%1&quot;.</source>
        <translation>--size erwartet eine Größe von 640x480 bis 7680x4320, nicht „%1“.</translation>
    </message>
    <message>
        <source>--palette takes &quot;light&quot; or &quot;dark&quot;, not &quot;%1&quot;.</source>
        <translation>--palette erwartet „light“ oder „dark“, nicht „%1“.</translation>
    </message>
    <message>
        <source>--language takes one of %1, not &quot;%2&quot;.</source>
        <translation>--language erwartet einen der Werte %1, nicht „%2“.</translation>
    </message>
    <message>
        <source>Show this help and exit.</source>
        <translation>Diese Hilfe anzeigen und beenden.</translation>
    </message>
    <message>
        <source>Show the version and exit.</source>
        <translation>Die Version anzeigen und beenden.</translation>
    </message>
    <message>
        <source>List the cameras that are found and exit.</source>
        <translation>Die gefundenen Kameras auflisten und beenden.</translation>
    </message>
    <message>
        <source>Open the camera with this id, serial number or network address, or the first one found (&quot;first&quot;).</source>
        <translation>Die Kamera mit dieser Kennung, Seriennummer oder Netzwerkadresse öffnen oder die erste gefundene („first“).</translation>
    </message>
    <message>
        <source>Start a simulated camera of this model and open it (default: full; known: %1).</source>
        <translation>Eine simulierte Kamera dieses Modells starten und öffnen (Vorgabe: full; bekannt: %1).</translation>
    </message>
    <message>
        <source>Acquire images from the start (&quot;on&quot;) or not (&quot;off&quot;). Default: off, and on for a screenshot.</source>
        <translation>Von Anfang an Bilder aufnehmen („on“) oder nicht („off“). Vorgabe: off, für einen Screenshot on.</translation>
    </message>
    <message>
        <source>Load the tab extensions from this folder (default: plugins, beside the program).</source>
        <translation>Die Tab-Erweiterungen aus diesem Ordner laden (Vorgabe: plugins neben dem Programm).</translation>
    </message>
    <message>
        <source>Save the window as a PNG image once the tabs are filled and images arrive, and exit.</source>
        <translation>Das Fenster als PNG-Bild speichern, sobald die Tabs gefüllt sind und Bilder ankommen, und beenden.</translation>
    </message>
    <message>
        <source>Wait this long before the screenshot (default: 1500).</source>
        <translation>Vor dem Screenshot so lange warten (Vorgabe: 1500).</translation>
    </message>
    <message>
        <source>Size of the window in pixels.</source>
        <translation>Größe des Fensters in Pixeln.</translation>
    </message>
    <message>
        <source>Use this palette instead of the desktop&apos;s: light or dark.</source>
        <translation>Diese Farbpalette statt der des Desktops verwenden: light oder dark.</translation>
    </message>
    <message>
        <source>Speak this language instead of the desktop&apos;s: %1.</source>
        <translation>Diese Sprache statt der des Desktops verwenden: %1.</translation>
    </message>
</context>
<context>
    <name>ExtensionArea</name>
    <message>
        <source>No tab extension was found.</source>
        <translation>Es wurde keine Tab-Erweiterung gefunden.</translation>
    </message>
</context>
<context>
    <name>FrameConverter</name>
    <message>
        <source>Images in the pixel format 0x%1 cannot be shown.</source>
        <translation>Bilder im Pixelformat 0x%1 können nicht angezeigt werden.</translation>
    </message>
    <message>
        <source>The camera delivered an incomplete image.</source>
        <translation>Die Kamera hat ein unvollständiges Bild geliefert.</translation>
    </message>
    <message>
        <source>Images of %1 x %2 pixels cannot be shown.</source>
        <translation>Bilder mit %1 x %2 Pixeln können nicht angezeigt werden.</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Live image</source>
        <translation>Livebild</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>%1 - ZalViewer</source>
        <translation>%1 - ZalViewer</translation>
    </message>
    <message>
        <source>Acquisition</source>
        <translation>Bildaufnahme</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>No image yet. Start the acquisition to see one.</source>
        <translation>Noch kein Bild. Starten Sie die Bildaufnahme, um eines zu sehen.</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Stop the acquisition (F5)</source>
        <translation>Die Bildaufnahme anhalten (F5)</translation>
    </message>
    <message>
        <source>Start the acquisition (F5)</source>
        <translation>Die Bildaufnahme starten (F5)</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>Aufnahme läuft</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Frames: %1</source>
        <translation>Bilder: %1</translation>
    </message>
    <message>
        <source>Camera lost</source>
        <translation>Kamera verloren</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. Close the viewer and open it again when the camera is back.</source>
        <translation>Die Verbindung zur Kamera %1 ist abgebrochen. Schließen Sie den Viewer und öffnen Sie ihn wieder, wenn die Kamera zurück ist.</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. %2 Close the viewer and open it again when the camera is free.</source>
        <translation>Die Verbindung zur Kamera %1 ist abgebrochen. %2 Schließen Sie den Viewer und öffnen Sie ihn wieder, wenn die Kamera frei ist.</translation>
    </message>
</context>
<context>
    <name>TabExtensions</name>
    <message>
        <source>&quot;%1&quot; is not a plugin. %2</source>
        <translation>„%1“ ist kein Plugin. %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a plugin of another kind (%2).</source>
        <translation>„%1“ ist ein Plugin anderer Art (%2).</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; could not be loaded. %2</source>
        <translation>Die Tab-Erweiterung „%1“ konnte nicht geladen werden. %2</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; was made for another version of the viewer (it lacks %2).</source>
        <translation>Die Tab-Erweiterung „%1“ wurde für eine andere Version des Viewers gemacht (ihr fehlt %2).</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; failed. %2</source>
        <translation>Die Tab-Erweiterung „%1“ ist gescheitert. %2</translation>
    </message>
    <message>
        <source>It gave no reason.</source>
        <translation>Sie nannte keinen Grund.</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; does not support this camera.</source>
        <translation>Die Tab-Erweiterung „%1“ unterstützt diese Kamera nicht.</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; built no tab (code %2).</source>
        <translation>Die Tab-Erweiterung „%1“ hat keinen Tab erzeugt (Code %2).</translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>There is no display to open the window on. Use --screenshot FILE to save a picture of it.</source>
        <translation>Es gibt keine Anzeige, auf der das Fenster geöffnet werden kann. Mit --screenshot DATEI wird ein Bild davon gespeichert.</translation>
    </message>
    <message>
        <source>The screenshot could not be written to &quot;%1&quot;.</source>
        <translation>Der Screenshot konnte nicht nach „%1“ geschrieben werden.</translation>
    </message>
    <message>
        <source>No camera was found.</source>
        <translation>Es wurde keine Kamera gefunden.</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1). Use --screenshot FILE to save a picture of it.</source>
        <translation>Es gibt keine nutzbare Anzeige, auf der das Fenster geöffnet werden kann (%1). Mit --screenshot DATEI wird ein Bild davon gespeichert.</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1).</source>
        <translation>Es gibt keine nutzbare Anzeige, auf der das Fenster geöffnet werden kann (%1).</translation>
    </message>
</context>
<context>
    <name>ZalCPP</name>
    <message>
        <source>The operation succeeded.</source>
        <translation>Die Operation war erfolgreich.</translation>
    </message>
    <message>
        <source>The feature does not offer this operation.</source>
        <translation>Das Feature bietet diese Operation nicht.</translation>
    </message>
    <message>
        <source>Nothing was found.</source>
        <translation>Es wurde nichts gefunden.</translation>
    </message>
    <message>
        <source>The feature is not available at the moment.</source>
        <translation>Das Feature ist zurzeit nicht verfügbar.</translation>
    </message>
    <message>
        <source>The camera is not open, or the connection to it is lost.</source>
        <translation>Die Kamera ist nicht geöffnet, oder die Verbindung zu ihr ist abgebrochen.</translation>
    </message>
    <message>
        <source>The feature has another data type.</source>
        <translation>Das Feature hat einen anderen Datentyp.</translation>
    </message>
    <message>
        <source>An argument of the call is unusable.</source>
        <translation>Ein Argument des Aufrufs ist unbrauchbar.</translation>
    </message>
    <message>
        <source>The feature cannot be read at the moment.</source>
        <translation>Das Feature kann zurzeit nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The feature cannot be written at the moment.</source>
        <translation>Das Feature kann zurzeit nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The value is outside the feature&apos;s range or not one of its steps.</source>
        <translation>Der Wert liegt außerhalb des Wertebereichs des Features oder nicht auf einer seiner Stufen.</translation>
    </message>
    <message>
        <source>The buffer is too small for the data.</source>
        <translation>Der Puffer ist zu klein für die Daten.</translation>
    </message>
    <message>
        <source>The camera did not answer in time.</source>
        <translation>Die Kamera hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>The connection to the camera reported a failure.</source>
        <translation>Die Verbindung zur Kamera meldete einen Fehler.</translation>
    </message>
    <message>
        <source>Memory or another resource ran out.</source>
        <translation>Der Speicher oder eine andere Ressource ist erschöpft.</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>Die Operation ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Another program controls the camera.</source>
        <translation>Ein anderes Programm steuert die Kamera.</translation>
    </message>
</context>
</TS>
