<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>AdvTriggerBase</name>
    <message>
        <source>Select preset: %1</source>
        <translation>Voreinstellung: %1</translation>
    </message>
    <message>
        <source>Error(s) on setting the preset:

%1</source>
        <translation>Fehler beim Anwenden der Voreinstellung:

%1</translation>
    </message>
    <message>
        <source>Execute</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>  Failed to set %1 = %2, Current value: &apos;%3&apos;
</source>
        <translation>  %1 = %2 konnte nicht gesetzt werden, aktueller Wert: „%3“
</translation>
    </message>
    <message>
        <source>  Executing &apos;%1&apos; failed.</source>
        <translation>  Das Ausführen von „%1“ ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>I/O lines</source>
        <translation>E/A-Leitungen</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>line, setting</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: high</source>
        <comment>line</comment>
        <translation>%1: Pegel hoch</translation>
    </message>
    <message>
        <source>%1: low</source>
        <comment>line</comment>
        <translation>%1: Pegel niedrig</translation>
    </message>
</context>
<context>
    <name>AdvTriggerDialog</name>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>Erweiterte Trigger-E/A</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>Vollständige Triggerkonfiguration nur bei angehaltener Bildaufnahme!</translation>
    </message>
    <message>
        <source>1. Select Preset:</source>
        <translation>1. Voreinstellung:</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>Tooltips ein:</translation>
    </message>
    <message>
        <source>2. Configure trigger input sources:</source>
        <translation>2. Trigger-Eingangsquellen konfigurieren:</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>Auswahl:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modus:</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Quelle:</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>Aktivierung:</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>Verzögerung (µs):</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>SW-Trigger auslösen</translation>
    </message>
    <message>
        <source>3. Configure inputs and outputs:</source>
        <translation>3. Ein- und Ausgänge konfigurieren:</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>E/A-Modus</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertieren</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>E/A-Leitungsquelle</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Debounce
Mode</source>
        <translation>Entprell-
modus</translation>
    </message>
    <message>
        <source>LineDebounceMode</source>
        <translation>LineDebounceMode</translation>
    </message>
    <message>
        <source>Debounce
Duration (µs)</source>
        <translation>Entprell-
dauer (µs)</translation>
    </message>
    <message>
        <source>LineDebounceDuration</source>
        <translation>LineDebounceDuration</translation>
    </message>
    <message>
        <source>4. Configure acquisition mode and exposure mode:</source>
        <translation>4. Aufnahme- und Belichtungsmodus konfigurieren:</translation>
    </message>
    <message>
        <source>Acquisition Mode:</source>
        <translation>Aufnahmemodus:</translation>
    </message>
    <message>
        <source>Frame Count:</source>
        <translation>Bildanzahl:</translation>
    </message>
    <message>
        <source>Exposure Mode:</source>
        <translation>Belichtungsmodus:</translation>
    </message>
    <message>
        <source>Configure Action Command:</source>
        <translation>Aktionsbefehl konfigurieren:</translation>
    </message>
    <message>
        <source>Action Control features are not available in the camera.</source>
        <translation>Die Kamera hat keine Features für Aktionsbefehle.</translation>
    </message>
    <message>
        <source>Action Selector:</source>
        <translation>Aktionsauswahl:</translation>
    </message>
    <message>
        <source>Device Key (write-only):</source>
        <translation>Geräteschl. (nur schreiben):</translation>
    </message>
    <message>
        <source>Group Key:</source>
        <translation>Gruppenschlüssel:</translation>
    </message>
    <message>
        <source>Group Mask:</source>
        <translation>Gruppenmaske:</translation>
    </message>
    <message>
        <source>Queue Size:</source>
        <translation>Warteschlangengröße:</translation>
    </message>
    <message>
        <source>PTP Enable</source>
        <translation>PTP aktivieren</translation>
    </message>
    <message>
        <source>PTP Operation Mode:</source>
        <translation>PTP-Betriebsart:</translation>
    </message>
    <message>
        <source>PTP Status:</source>
        <translation>PTP-Status:</translation>
    </message>
    <message>
        <source>PTP Servo Status:</source>
        <translation>PTP-Servo-Status:</translation>
    </message>
    <message>
        <source>PTP Clock ID:</source>
        <translation>PTP-Clock-ID:</translation>
    </message>
    <message>
        <source>PTP ParentClock ID:</source>
        <translation>PTP-Parent-Clock-ID:</translation>
    </message>
    <message>
        <source>PTP Grandmaster Clock ID:</source>
        <translation>PTP-Grandmaster-ID:</translation>
    </message>
    <message>
        <source>PTP Clock Accuracy:</source>
        <translation>PTP-Clock-Genauigkeit:</translation>
    </message>
    <message>
        <source>PTP Offset from master: </source>
        <translation>PTP-Offset zum Master: </translation>
    </message>
    <message>
        <source>PTP Data Set Latch</source>
        <translation>PTP-Daten erfassen</translation>
    </message>
    <message>
        <source>Timestamp Latch</source>
        <translation>Zeitstempel erfassen</translation>
    </message>
    <message>
        <source>Timestamp Latch Value:</source>
        <translation>Erfasster Zeitstempel:</translation>
    </message>
    <message>
        <source>Configure Software Signal:</source>
        <translation>Softwaresignal konfigurieren:</translation>
    </message>
    <message>
        <source>Software Signal Control features are not available in the camera.</source>
        <translation>Die Kamera hat keine Features für Softwaresignale.</translation>
    </message>
    <message>
        <source>Signal Selector:</source>
        <translation>Signalauswahl:</translation>
    </message>
    <message>
        <source>Execute Signal Pulse</source>
        <translation>Signalimpuls auslösen</translation>
    </message>
    <message>
        <source>Configure Counter and Timer:</source>
        <translation>Zähler und Timer konfigurieren:</translation>
    </message>
    <message>
        <source>Counter and Timer features are not available in the camera.</source>
        <translation>Die Kamera hat keine Features für Zähler und Timer.</translation>
    </message>
    <message>
        <source>Counter</source>
        <translation>Zähler</translation>
    </message>
    <message>
        <source>Event Source:</source>
        <translation>Ereignisquelle:</translation>
    </message>
    <message>
        <source>Duration:</source>
        <translation>Dauer:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>Wert:</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>Optional</translation>
    </message>
    <message>
        <source>Trigger Source:</source>
        <translation>Triggerquelle:</translation>
    </message>
    <message>
        <source>T. Activation:</source>
        <translation>T.-Aktivierung:</translation>
    </message>
    <message>
        <source>Reset Source:</source>
        <translation>Reset-Quelle:</translation>
    </message>
    <message>
        <source>R. Activation:</source>
        <translation>R.-Aktivierung:</translation>
    </message>
    <message>
        <source>Counter Status:</source>
        <translation>Zählerstatus:</translation>
    </message>
    <message>
        <source>Counter Value at Reset:</source>
        <translation>Zählerwert beim Reset:</translation>
    </message>
    <message>
        <source>Execute Reset</source>
        <translation>Reset ausführen</translation>
    </message>
    <message>
        <source>Timer</source>
        <translation>Timer</translation>
    </message>
    <message>
        <source>Duration (µs):</source>
        <translation>Dauer (µs):</translation>
    </message>
    <message>
        <source>Timer Status:</source>
        <translation>Timerstatus:</translation>
    </message>
    <message>
        <source>PWM:</source>
        <translation>PWM:</translation>
    </message>
    <message>
        <source>Frequency (Hz):</source>
        <translation>Frequenz (Hz):</translation>
    </message>
    <message>
        <source>Duty Cycle (%):</source>
        <translation>Tastgrad (%):</translation>
    </message>
    <message>
        <source>Trigger Features Status:</source>
        <translation>Trigger-Status:</translation>
    </message>
</context>
<context>
    <name>AdvTriggerWidget</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>Vollständige Triggerkonfiguration nur bei angehaltener Bildaufnahme!</translation>
    </message>
    <message>
        <source>Select Preset:</source>
        <translation>Voreinstellung:</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>Tooltips ein:</translation>
    </message>
    <message>
        <source>Configure Trigger:</source>
        <translation>Trigger konfigurieren:</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Quelle:</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>Aktivierung:</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>Auswahl:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modus:</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>Verzögerung (µs):</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>SW-Trigger</translation>
    </message>
    <message>
        <source>Configure Advanced Trigger Features:</source>
        <translation>Erweiterte Trigger-Features konfigurieren:</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;Acquisition Mode, Action Command,&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;Counters and Timers:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;Aufnahmemodus, Aktionsbefehl,&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;Zähler und Timer:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Open dialog</source>
        <translation>Dialog öffnen</translation>
    </message>
    <message>
        <source>Configure inputs and outputs:</source>
        <translation>Ein- und Ausgänge konfigurieren:</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>E/A-Modus</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertieren</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>E/A-Leitungsquelle</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Show Trigger Features Status:</source>
        <translation>Trigger-Status anzeigen:</translation>
    </message>
    <message>
        <source>Trigger IO</source>
        <translation>Trigger-E/A</translation>
    </message>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>Erweiterte Trigger-E/A</translation>
    </message>
</context>
<context>
    <name>BaseTabPluginWidget</name>
    <message>
        <source>Vendor not supported for plugins, widget not created.</source>
        <translation>Der Hersteller wird von Plugins nicht unterstützt, das Widget wurde nicht erstellt.</translation>
    </message>
</context>
<context>
    <name>SettingsTreeModel</name>
    <message>
        <source>Trigger features status</source>
        <translation>Trigger-Status</translation>
    </message>
</context>
<context>
    <name>TabExtensionPlugin</name>
    <message>
        <source>Please use the Advanced Trigger Dialog.</source>
        <translation>Bitte verwenden Sie den Dialog „Erweiterte Trigger-E/A“.</translation>
    </message>
</context>
</TS>
