<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>AdvTriggerBase</name>
    <message>
        <source>Select preset: %1</source>
        <translation>Preajuste: %1</translation>
    </message>
    <message>
        <source>Error(s) on setting the preset:

%1</source>
        <translation>Error(es) al aplicar el preajuste:

%1</translation>
    </message>
    <message>
        <source>Execute</source>
        <translation>Ejecutar</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>  Failed to set %1 = %2, Current value: &apos;%3&apos;
</source>
        <translation>  No se pudo establecer %1 = %2, valor actual: «%3»
</translation>
    </message>
    <message>
        <source>  Executing &apos;%1&apos; failed.</source>
        <translation>  Error al ejecutar «%1».</translation>
    </message>
    <message>
        <source>I/O lines</source>
        <translation>Líneas de E/S</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>line, setting</comment>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: high</source>
        <comment>line</comment>
        <translation>%1: nivel alto</translation>
    </message>
    <message>
        <source>%1: low</source>
        <comment>line</comment>
        <translation>%1: nivel bajo</translation>
    </message>
</context>
<context>
    <name>AdvTriggerDialog</name>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>E/S de disparo avanzadas</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>¡Configuración completa del disparo solo con la adquisición detenida!</translation>
    </message>
    <message>
        <source>1. Select Preset:</source>
        <translation>1. Preajuste:</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>Ayuda emergente:</translation>
    </message>
    <message>
        <source>2. Configure trigger input sources:</source>
        <translation>2. Configurar las fuentes de entrada del disparo:</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>Selector:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modo:</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Fuente:</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>Activación:</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>Retardo (µs):</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>Disparo por software</translation>
    </message>
    <message>
        <source>3. Configure inputs and outputs:</source>
        <translation>3. Configurar entradas y salidas:</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>Modo E/S</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertir</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>Fuente de línea E/S</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Debounce
Mode</source>
        <translation>Modo
antirrebote</translation>
    </message>
    <message>
        <source>LineDebounceMode</source>
        <translation>LineDebounceMode</translation>
    </message>
    <message>
        <source>Debounce
Duration (µs)</source>
        <translation>Duración
antirrebote (µs)</translation>
    </message>
    <message>
        <source>LineDebounceDuration</source>
        <translation>LineDebounceDuration</translation>
    </message>
    <message>
        <source>4. Configure acquisition mode and exposure mode:</source>
        <translation>4. Configurar los modos de adquisición y exposición:</translation>
    </message>
    <message>
        <source>Acquisition Mode:</source>
        <translation>Modo de adquisición:</translation>
    </message>
    <message>
        <source>Frame Count:</source>
        <translation>Número de imágenes:</translation>
    </message>
    <message>
        <source>Exposure Mode:</source>
        <translation>Modo de exposición:</translation>
    </message>
    <message>
        <source>Configure Action Command:</source>
        <translation>Configurar el comando de acción:</translation>
    </message>
    <message>
        <source>Action Control features are not available in the camera.</source>
        <translation>La cámara no dispone de características de control de acciones.</translation>
    </message>
    <message>
        <source>Action Selector:</source>
        <translation>Selector de acción:</translation>
    </message>
    <message>
        <source>Device Key (write-only):</source>
        <translation>Clave disp. (solo escritura):</translation>
    </message>
    <message>
        <source>Group Key:</source>
        <translation>Clave de grupo:</translation>
    </message>
    <message>
        <source>Group Mask:</source>
        <translation>Máscara de grupo:</translation>
    </message>
    <message>
        <source>Queue Size:</source>
        <translation>Tamaño de la cola:</translation>
    </message>
    <message>
        <source>PTP Enable</source>
        <translation>Activar PTP</translation>
    </message>
    <message>
        <source>PTP Operation Mode:</source>
        <translation>Modo de operación PTP:</translation>
    </message>
    <message>
        <source>PTP Status:</source>
        <translation>Estado PTP:</translation>
    </message>
    <message>
        <source>PTP Servo Status:</source>
        <translation>Estado del servo PTP:</translation>
    </message>
    <message>
        <source>PTP Clock ID:</source>
        <translation>ID del reloj PTP:</translation>
    </message>
    <message>
        <source>PTP ParentClock ID:</source>
        <translation>ID del reloj padre PTP:</translation>
    </message>
    <message>
        <source>PTP Grandmaster Clock ID:</source>
        <translation>ID gran maestro PTP:</translation>
    </message>
    <message>
        <source>PTP Clock Accuracy:</source>
        <translation>Precisión del reloj PTP:</translation>
    </message>
    <message>
        <source>PTP Offset from master: </source>
        <translation>Desfase con maestro PTP: </translation>
    </message>
    <message>
        <source>PTP Data Set Latch</source>
        <translation>Capturar datos PTP</translation>
    </message>
    <message>
        <source>Timestamp Latch</source>
        <translation>Capturar marca tiempo</translation>
    </message>
    <message>
        <source>Timestamp Latch Value:</source>
        <translation>Marca de tiempo capturada:</translation>
    </message>
    <message>
        <source>Configure Software Signal:</source>
        <translation>Configurar la señal de software:</translation>
    </message>
    <message>
        <source>Software Signal Control features are not available in the camera.</source>
        <translation>La cámara no dispone de características de señales de software.</translation>
    </message>
    <message>
        <source>Signal Selector:</source>
        <translation>Selector de señal:</translation>
    </message>
    <message>
        <source>Execute Signal Pulse</source>
        <translation>Emitir pulso de señal</translation>
    </message>
    <message>
        <source>Configure Counter and Timer:</source>
        <translation>Configurar contadores y temporizadores:</translation>
    </message>
    <message>
        <source>Counter and Timer features are not available in the camera.</source>
        <translation>La cámara no dispone de características de contadores y temporizadores.</translation>
    </message>
    <message>
        <source>Counter</source>
        <translation>Contador</translation>
    </message>
    <message>
        <source>Event Source:</source>
        <translation>Fuente de eventos:</translation>
    </message>
    <message>
        <source>Duration:</source>
        <translation>Duración:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>Valor:</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>Opcional</translation>
    </message>
    <message>
        <source>Trigger Source:</source>
        <translation>Fuente de disparo:</translation>
    </message>
    <message>
        <source>T. Activation:</source>
        <translation>Activación disp.:</translation>
    </message>
    <message>
        <source>Reset Source:</source>
        <translation>Fuente de reinicio:</translation>
    </message>
    <message>
        <source>R. Activation:</source>
        <translation>Activación reinicio:</translation>
    </message>
    <message>
        <source>Counter Status:</source>
        <translation>Estado del contador:</translation>
    </message>
    <message>
        <source>Counter Value at Reset:</source>
        <translation>Valor al reiniciar:</translation>
    </message>
    <message>
        <source>Execute Reset</source>
        <translation>Reiniciar</translation>
    </message>
    <message>
        <source>Timer</source>
        <translation>Temporizador</translation>
    </message>
    <message>
        <source>Duration (µs):</source>
        <translation>Duración (µs):</translation>
    </message>
    <message>
        <source>Timer Status:</source>
        <translation>Estado del temporizador:</translation>
    </message>
    <message>
        <source>PWM:</source>
        <translation>PWM:</translation>
    </message>
    <message>
        <source>Frequency (Hz):</source>
        <translation>Frecuencia (Hz):</translation>
    </message>
    <message>
        <source>Duty Cycle (%):</source>
        <translation>Ciclo de trabajo (%):</translation>
    </message>
    <message>
        <source>Trigger Features Status:</source>
        <translation>Estado del disparo:</translation>
    </message>
</context>
<context>
    <name>AdvTriggerWidget</name>
    <message>
        <source>Form</source>
        <translation>Formulario</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>¡Configuración completa del disparo solo con la adquisición detenida!</translation>
    </message>
    <message>
        <source>Select Preset:</source>
        <translation>Preajuste:</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>Ayuda emergente:</translation>
    </message>
    <message>
        <source>Configure Trigger:</source>
        <translation>Configurar el disparo:</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Fuente:</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>Activación:</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>Selector:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>Modo:</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>Retardo (µs):</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>Disparo software</translation>
    </message>
    <message>
        <source>Configure Advanced Trigger Features:</source>
        <translation>Configurar el disparo avanzado:</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;Acquisition Mode, Action Command,&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;Counters and Timers:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;Modo de adquisición, comando de acción,&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;contadores y temporizadores:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Open dialog</source>
        <translation>Abrir diálogo</translation>
    </message>
    <message>
        <source>Configure inputs and outputs:</source>
        <translation>Configurar entradas y salidas:</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>Modo E/S</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertir</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>Fuente de línea E/S</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Show Trigger Features Status:</source>
        <translation>Mostrar el estado del disparo:</translation>
    </message>
    <message>
        <source>Trigger IO</source>
        <translation>E/S de disparo</translation>
    </message>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>E/S de disparo avanzadas</translation>
    </message>
</context>
<context>
    <name>BaseTabPluginWidget</name>
    <message>
        <source>Vendor not supported for plugins, widget not created.</source>
        <translation>Fabricante no compatible con los plugins; no se ha creado el widget.</translation>
    </message>
</context>
<context>
    <name>SettingsTreeModel</name>
    <message>
        <source>Trigger features status</source>
        <translation>Estado del disparo</translation>
    </message>
</context>
<context>
    <name>TabExtensionPlugin</name>
    <message>
        <source>Please use the Advanced Trigger Dialog.</source>
        <translation>Utilice el diálogo «E/S de disparo avanzadas».</translation>
    </message>
</context>
</TS>
