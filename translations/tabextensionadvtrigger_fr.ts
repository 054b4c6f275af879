<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>AdvTriggerBase</name>
    <message>
        <source>Select preset: %1</source>
        <translation>Préréglage&#xa0;: %1</translation>
    </message>
    <message>
        <source>Error(s) on setting the preset:

%1</source>
        <translation>Erreur(s) lors de l’application du préréglage&#xa0;:

%1</translation>
    </message>
    <message>
        <source>Execute</source>
        <translation>Exécuter</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>  Failed to set %1 = %2, Current value: &apos;%3&apos;
</source>
        <translation>  Échec du réglage %1 = %2, valeur actuelle&#xa0;: «&#xa0;%3&#xa0;»
</translation>
    </message>
    <message>
        <source>  Executing &apos;%1&apos; failed.</source>
        <translation>  L’exécution de «&#xa0;%1&#xa0;» a échoué.</translation>
    </message>
    <message>
        <source>I/O lines</source>
        <translation>Lignes d’E/S</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>line, setting</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: high</source>
        <comment>line</comment>
        <translation>%1&#xa0;: niveau haut</translation>
    </message>
    <message>
        <source>%1: low</source>
        <comment>line</comment>
        <translation>%1&#xa0;: niveau bas</translation>
    </message>
</context>
<context>
    <name>AdvTriggerDialog</name>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>E/S de déclenchement avancées</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>Configuration complète du déclenchement uniquement hors acquisition&#xa0;!</translation>
    </message>
    <message>
        <source>1. Select Preset:</source>
        <translation>1. Préréglage&#xa0;:</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>Infobulles&#xa0;:</translation>
    </message>
    <message>
        <source>2. Configure trigger input sources:</source>
        <translation>2. Configurer les sources d’entrée du déclenchement&#xa0;:</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>Sélecteur&#xa0;:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Mode&#xa0;:</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Source&#xa0;:</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>Activation&#xa0;:</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>Retard (µs)&#xa0;:</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>Déclenchement logiciel</translation>
    </message>
    <message>
        <source>3. Configure inputs and outputs:</source>
        <translation>3. Configurer les entrées et sorties&#xa0;:</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>Mode E/S</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Inverser</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>Source de ligne E/S</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Debounce
Mode</source>
        <translation>Mode
anti-rebond</translation>
    </message>
    <message>
        <source>LineDebounceMode</source>
        <translation>LineDebounceMode</translation>
    </message>
    <message>
        <source>Debounce
Duration (µs)</source>
        <translation>Durée
anti-rebond (µs)</translation>
    </message>
    <message>
        <source>LineDebounceDuration</source>
        <translation>LineDebounceDuration</translation>
    </message>
    <message>
        <source>4. Configure acquisition mode and exposure mode:</source>
        <translation>4. Configurer les modes d’acquisition et d’exposition&#xa0;:</translation>
    </message>
    <message>
        <source>Acquisition Mode:</source>
        <translation>Mode d’acquisition&#xa0;:</translation>
    </message>
    <message>
        <source>Frame Count:</source>
        <translation>Nombre d’images&#xa0;:</translation>
    </message>
    <message>
        <source>Exposure Mode:</source>
        <translation>Mode d’exposition&#xa0;:</translation>
    </message>
    <message>
        <source>Configure Action Command:</source>
        <translation>Configurer la commande d’action&#xa0;:</translation>
    </message>
    <message>
        <source>Action Control features are not available in the camera.</source>
        <translation>La caméra n’offre pas les fonctionnalités de commande d’action.</translation>
    </message>
    <message>
        <source>Action Selector:</source>
        <translation>Sélecteur d’action&#xa0;:</translation>
    </message>
    <message>
        <source>Device Key (write-only):</source>
        <translation>Clé d’appareil (écr. seule)&#xa0;:</translation>
    </message>
    <message>
        <source>Group Key:</source>
        <translation>Clé de groupe&#xa0;:</translation>
    </message>
    <message>
        <source>Group Mask:</source>
        <translation>Masque de groupe&#xa0;:</translation>
    </message>
    <message>
        <source>Queue Size:</source>
        <translation>Taille de la file&#xa0;:</translation>
    </message>
    <message>
        <source>PTP Enable</source>
        <translation>Activer PTP</translation>
    </message>
    <message>
        <source>PTP Operation Mode:</source>
        <translation>Mode opératoire PTP&#xa0;:</translation>
    </message>
    <message>
        <source>PTP Status:</source>
        <translation>État PTP&#xa0;:</translation>
    </message>
    <message>
        <source>PTP Servo Status:</source>
        <translation>État du servo PTP&#xa0;:</translation>
    </message>
    <message>
        <source>PTP Clock ID:</source>
        <translation>ID d’horloge PTP&#xa0;:</translation>
    </message>
    <message>
        <source>PTP ParentClock ID:</source>
        <translation>ID d’horloge parente PTP&#xa0;:</translation>
    </message>
    <message>
        <source>PTP Grandmaster Clock ID:</source>
        <translation>ID grand maître PTP&#xa0;:</translation>
    </message>
    <message>
        <source>PTP Clock Accuracy:</source>
        <translation>Précision d’horloge PTP&#xa0;:</translation>
    </message>
    <message>
        <source>PTP Offset from master: </source>
        <translation>Décalage au maître PTP&#xa0;: </translation>
    </message>
    <message>
        <source>PTP Data Set Latch</source>
        <translation>Capturer données PTP</translation>
    </message>
    <message>
        <source>Timestamp Latch</source>
        <translation>Capturer l’horodatage</translation>
    </message>
    <message>
        <source>Timestamp Latch Value:</source>
        <translation>Horodatage capturé&#xa0;:</translation>
    </message>
    <message>
        <source>Configure Software Signal:</source>
        <translation>Configurer le signal logiciel&#xa0;:</translation>
    </message>
    <message>
        <source>Software Signal Control features are not available in the camera.</source>
        <translation>La caméra n’offre pas les fonctionnalités de signal logiciel.</translation>
    </message>
    <message>
        <source>Signal Selector:</source>
        <translation>Sélecteur de signal&#xa0;:</translation>
    </message>
    <message>
        <source>Execute Signal Pulse</source>
        <translation>Émettre une impulsion</translation>
    </message>
    <message>
        <source>Configure Counter and Timer:</source>
        <translation>Configurer les compteurs et temporisateurs&#xa0;:</translation>
    </message>
    <message>
        <source>Counter and Timer features are not available in the camera.</source>
        <translation>La caméra n’offre pas les fonctionnalités de compteur et de temporisateur.</translation>
    </message>
    <message>
        <source>Counter</source>
        <translation>Compteur</translation>
    </message>
    <message>
        <source>Event Source:</source>
        <translation>Source d’événement&#xa0;:</translation>
    </message>
    <message>
        <source>Duration:</source>
        <translation>Durée&#xa0;:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>Valeur&#xa0;:</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>Facultatif</translation>
    </message>
    <message>
        <source>Trigger Source:</source>
        <translation>Source décl.&#xa0;:</translation>
    </message>
    <message>
        <source>T. Activation:</source>
        <translation>Activation décl.&#xa0;:</translation>
    </message>
    <message>
        <source>Reset Source:</source>
        <translation>Source RAZ&#xa0;:</translation>
    </message>
    <message>
        <source>R. Activation:</source>
        <translation>Activation RAZ&#xa0;:</translation>
    </message>
    <message>
        <source>Counter Status:</source>
        <translation>État du compteur&#xa0;:</translation>
    </message>
    <message>
        <source>Counter Value at Reset:</source>
        <translation>Valeur à la RAZ&#xa0;:</translation>
    </message>
    <message>
        <source>Execute Reset</source>
        <translation>Remettre à zéro</translation>
    </message>
    <message>
        <source>Timer</source>
        <translation>Temporisateur</translation>
    </message>
    <message>
        <source>Duration (µs):</source>
        <translation>Durée (µs)&#xa0;:</translation>
    </message>
    <message>
        <source>Timer Status:</source>
        <translation>État du temporisateur&#xa0;:</translation>
    </message>
    <message>
        <source>PWM:</source>
        <translation>PWM&#xa0;:</translation>
    </message>
    <message>
        <source>Frequency (Hz):</source>
        <translation>Fréquence (Hz)&#xa0;:</translation>
    </message>
    <message>
        <source>Duty Cycle (%):</source>
        <translation>Rapport cyclique (%)&#xa0;:</translation>
    </message>
    <message>
        <source>Trigger Features Status:</source>
        <translation>État du déclenchement&#xa0;:</translation>
    </message>
</context>
<context>
    <name>AdvTriggerWidget</name>
    <message>
        <source>Form</source>
        <translation>Formulaire</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>Configuration complète du déclenchement uniquement hors acquisition&#xa0;!</translation>
    </message>
    <message>
        <source>Select Preset:</source>
        <translation>Préréglage&#xa0;:</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>Infobulles&#xa0;:</translation>
    </message>
    <message>
        <source>Configure Trigger:</source>
        <translation>Configurer le déclenchement&#xa0;:</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Source&#xa0;:</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>Activation&#xa0;:</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>Sélecteur&#xa0;:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Mode&#xa0;:</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>Retard (µs)&#xa0;:</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>Décl. logiciel</translation>
    </message>
    <message>
        <source>Configure Advanced Trigger Features:</source>
        <translation>Configurer le déclenchement avancé&#xa0;:</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;Acquisition Mode, Action Command,&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;Counters and Timers:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;Mode d’acquisition, commande d’action,&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;compteurs et temporisateurs&#xa0;:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Open dialog</source>
        <translation>Ouvrir le dialogue</translation>
    </message>
    <message>
        <source>Configure inputs and outputs:</source>
        <translation>Configurer les entrées et sorties&#xa0;:</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>Mode E/S</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Inverser</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>Source de ligne E/S</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Show Trigger Features Status:</source>
        <translation>Afficher l’état du déclenchement&#xa0;:</translation>
    </message>
    <message>
        <source>Trigger IO</source>
        <translation>E/S de déclenchement</translation>
    </message>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>E/S de déclenchement avancées</translation>
    </message>
</context>
<context>
    <name>BaseTabPluginWidget</name>
    <message>
        <source>Vendor not supported for plugins, widget not created.</source>
        <translation>Fabricant non pris en charge par les plugins, widget non créé.</translation>
    </message>
</context>
<context>
    <name>SettingsTreeModel</name>
    <message>
        <source>Trigger features status</source>
        <translation>État du déclenchement</translation>
    </message>
</context>
<context>
    <name>TabExtensionPlugin</name>
    <message>
        <source>Please use the Advanced Trigger Dialog.</source>
        <translation>Veuillez utiliser le dialogue «&#xa0;E/S de déclenchement avancées&#xa0;».</translation>
    </message>
</context>
</TS>
