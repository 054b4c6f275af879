<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>CameraSession</name>
    <message>
        <source>The acquisition could not be started. %1</source>
        <translation>No se pudo iniciar la adquisición. %1</translation>
    </message>
    <message>
        <source>The acquisition did not stop cleanly. %1</source>
        <translation>La adquisición no se detuvo correctamente. %1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows a camera&apos;s live image, and the tab extensions that support the camera.
Without --camera and --simulate it starts a simulated camera of its own.</source>
        <translation>Muestra la imagen en vivo de una cámara y las extensiones de pestaña compatibles con ella.
Sin --camera ni --simulate se inicia una cámara simulada propia.</translation>
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
Códigos de salida:
  %1  éxito
  %2  argumentos incorrectos
  %3  no se encontró ninguna cámara o no se pudo abrir
  %4  no se pudo usar un archivo de la carpeta de plugins
  %5  no se pudo guardar la captura de pantalla
  %6  sin pantalla
</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;.</source>
        <translation>Argumento inesperado «%1».</translation>
    </message>
    <message>
        <source>--camera and --simulate exclude each other.</source>
        <translation>--camera y --simulate se excluyen mutuamente.</translation>
    </message>
    <message>
        <source>--camera needs an id, a serial number, an address or &quot;first&quot;.</source>
        <translation>--camera necesita un identificador, un número de serie, una dirección o «first».</translation>
    </message>
    <message>
        <source>There is no simulated model &quot;%1&quot;. Known models: %2.</source>
        <translation>No existe el modelo simulado «%1». Modelos conocidos: %2.</translation>
    </message>
    <message>
        <source>--acquire takes &quot;on&quot; or &quot;off&quot;, not &quot;%1&quot;.</source>
        <translation>--acquire admite «on» u «off», no «%1».</translation>
    </message>
    <message>
        <source>There is no folder &quot;%1&quot;.</source>
        <translation>No existe la carpeta «%1».</translation>
    </message>
    <message>
        <source>--screenshot needs the name of a file.</source>
        <translation>--screenshot necesita el nombre de un archivo.</translation>
    </message>
    <message>
        <source>--delay is for --screenshot only.</source>
        <translation>--delay solo se puede usar con --screenshot.</translation>
    </message>
    <message>
        <source>--delay takes 0 to 60000 milliseconds, not &quot;%1&quot;.</source>
        <translation>--delay admite de 0 a 60000 milisegundos, no «%1».</translation>
    </message>
    <message>
        <source>--size takes a size from 640x480 to 7680x4320, not &quot;%1&quot;.</source>
        <translation>--size admite un tamaño de 640x480 a 7680x4320, no «%1».</translation>
    </message>
    <message>
        <source>--palette takes &quot;light&quot; or &quot;dark&quot;, not &quot;%1&quot;.</source>
        <translation>--palette admite «light» o «dark», no «%1».</translation>
    </message>
    <message>
        <source>--language takes one of %1, not &quot;%2&quot;.</source>
        <translation>--language admite uno de los valores %1, no «%2».</translation>
    </message>
    <message>
        <source>Show this help and exit.</source>
        <translation>Mostrar esta ayuda y salir.</translation>
    </message>
    <message>
        <source>Show the version and exit.</source>
        <translation>Mostrar la versión y salir.</translation>
    </message>
    <message>
        <source>List the cameras that are found and exit.</source>
        <translation>Listar las cámaras encontradas y salir.</translation>
    </message>
    <message>
        <source>Open the camera with this id, serial number or network address, or the first one found (&quot;first&quot;).</source>
        <translation>Abrir la cámara con este identificador, número de serie o dirección de red, o la primera encontrada («first»).</translation>
    </message>
    <message>
        <source>Start a simulated camera of this model and open it (default: full; known: %1).</source>
        <translation>Iniciar una cámara simulada de este modelo y abrirla (predeterminado: full; conocidos: %1).</translation>
    </message>
    <message>
        <source>Acquire images from the start (&quot;on&quot;) or not (&quot;off&quot;). Default: off, and on for a screenshot.</source>
        <translation>Adquirir imágenes desde el inicio («on») o no («off»). Predeterminado: off, y on para una captura de pantalla.</translation>
    </message>
    <message>
        <source>Load the tab extensions from this folder (default: plugins, beside the program).</source>
        <translation>Cargar las extensiones de pestaña de esta carpeta (predeterminado: plugins, junto al programa).</translation>
    </message>
    <message>
        <source>Save the window as a PNG image once the tabs are filled and images arrive, and exit.</source>
        <translation>Guardar la ventana como imagen PNG cuando las pestañas estén listas y lleguen imágenes, y salir.</translation>
    </message>
    <message>
        <source>Wait this long before the screenshot (default: 1500).</source>
        <translation>Esperar este tiempo antes de la captura de pantalla (predeterminado: 1500).</translation>
    </message>
    <message>
        <source>Size of the window in pixels.</source>
        <translation>Tamaño de la ventana en píxeles.</translation>
    </message>
    <message>
        <source>Use this palette instead of the desktop&apos;s: light or dark.</source>
        <translation>Usar esta paleta en lugar de la del escritorio: light o dark.</translation>
    </message>
    <message>
        <source>Speak this language instead of the desktop&apos;s: %1.</source>
        <translation>Usar este idioma en lugar del del escritorio: %1.</translation>
    </message>
</context>
<context>
    <name>ExtensionArea</name>
    <message>
        <source>No tab extension was found.</source>
        <translation>No se encontró ninguna extensión de pestaña.</translation>
    </message>
</context>
<context>
    <name>FrameConverter</name>
    <message>
        <source>Images in the pixel format 0x%1 cannot be shown.</source>
        <translation>No se pueden mostrar imágenes con el formato de píxel 0x%1.</translation>
    </message>
    <message>
        <source>The camera delivered an incomplete image.</source>
        <translation>La cámara entregó una imagen incompleta.</translation>
    </message>
    <message>
        <source>Images of %1 x %2 pixels cannot be shown.</source>
        <translation>No se pueden mostrar imágenes de %1 x %2 píxeles.</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Live image</source>
        <translation>Imagen en vivo</translation>
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
        <translation>Adquisición</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>No image yet. Start the acquisition to see one.</source>
        <translation>Aún no hay imagen. Inicie la adquisición para ver una.</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Iniciar</translation>
    </message>
    <message>
        <source>Stop the acquisition (F5)</source>
        <translation>Detener la adquisición (F5)</translation>
    </message>
    <message>
        <source>Start the acquisition (F5)</source>
        <translation>Iniciar la adquisición (F5)</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>Adquiriendo</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Detenida</translation>
    </message>
    <message>
        <source>Frames: %1</source>
        <translation>Imágenes: %1</translation>
    </message>
    <message>
        <source>Camera lost</source>
        <translation>Cámara perdida</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. Close the viewer and open it again when the camera is back.</source>
        <translation>Se ha perdido la conexión con la cámara %1. Cierre el visor y vuelva a abrirlo cuando la cámara esté disponible de nuevo.</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. %2 Close the viewer and open it again when the camera is free.</source>
        <translation>Se ha perdido la conexión con la cámara %1. %2 Cierre el visor y vuelva a abrirlo cuando la cámara esté libre.</translation>
    </message>
</context>
<context>
    <name>TabExtensions</name>
    <message>
        <source>&quot;%1&quot; is not a plugin. %2</source>
        <translation>«%1» no es un plugin. %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a plugin of another kind (%2).</source>
        <translation>«%1» es un plugin de otro tipo (%2).</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; could not be loaded. %2</source>
        <translation>No se pudo cargar la extensión de pestaña «%1». %2</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; was made for another version of the viewer (it lacks %2).</source>
        <translation>La extensión de pestaña «%1» es para otra versión del visor (le falta %2).</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; failed. %2</source>
        <translation>La extensión de pestaña «%1» ha fallado. %2</translation>
    </message>
    <message>
        <source>It gave no reason.</source>
        <translation>No indicó ningún motivo.</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; does not support this camera.</source>
        <translation>La extensión de pestaña «%1» no es compatible con esta cámara.</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; built no tab (code %2).</source>
        <translation>La extensión de pestaña «%1» no creó ninguna pestaña (código %2).</translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>There is no display to open the window on. Use --screenshot FILE to save a picture of it.</source>
        <translation>No hay ninguna pantalla en la que abrir la ventana. Use --screenshot ARCHIVO para guardar una imagen de ella.</translation>
    </message>
    <message>
        <source>The screenshot could not be written to &quot;%1&quot;.</source>
        <translation>No se pudo guardar la captura de pantalla en «%1».</translation>
    </message>
    <message>
        <source>No camera was found.</source>
        <translation>No se encontró ninguna cámara.</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1). Use --screenshot FILE to save a picture of it.</source>
        <translation>No hay ninguna pantalla utilizable en la que abrir la ventana (%1). Use --screenshot ARCHIVO para guardar una imagen de ella.</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1).</source>
        <translation>No hay ninguna pantalla utilizable en la que abrir la ventana (%1).</translation>
    </message>
</context>
<context>
    <name>ZalCPP</name>
    <message>
        <source>The operation succeeded.</source>
        <translation>La operación se realizó correctamente.</translation>
    </message>
    <message>
        <source>The feature does not offer this operation.</source>
        <translation>La característica no ofrece esta operación.</translation>
    </message>
    <message>
        <source>Nothing was found.</source>
        <translation>No se encontró nada.</translation>
    </message>
    <message>
        <source>The feature is not available at the moment.</source>
        <translation>La característica no está disponible en este momento.</translation>
    </message>
    <message>
        <source>The camera is not open, or the connection to it is lost.</source>
        <translation>La cámara no está abierta o se ha perdido la conexión con ella.</translation>
    </message>
    <message>
        <source>The feature has another data type.</source>
        <translation>La característica tiene otro tipo de datos.</translation>
    </message>
    <message>
        <source>An argument of the call is unusable.</source>
        <translation>Un argumento de la llamada no es válido.</translation>
    </message>
    <message>
        <source>The feature cannot be read at the moment.</source>
        <translation>La característica no se puede leer en este momento.</translation>
    </message>
    <message>
        <source>The feature cannot be written at the moment.</source>
        <translation>La característica no se puede escribir en este momento.</translation>
    </message>
    <message>
        <source>The value is outside the feature&apos;s range or not one of its steps.</source>
        <translation>El valor está fuera del rango de la característica o no corresponde a su incremento.</translation>
    </message>
    <message>
        <source>The buffer is too small for the data.</source>
        <translation>El búfer es demasiado pequeño para los datos.</translation>
    </message>
    <message>
        <source>The camera did not answer in time.</source>
        <translation>La cámara no respondió a tiempo.</translation>
    </message>
    <message>
        <source>The connection to the camera reported a failure.</source>
        <translation>La conexión con la cámara notificó un error.</translation>
    </message>
    <message>
        <source>Memory or another resource ran out.</source>
        <translation>Se agotó la memoria u otro recurso.</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>La operación ha fallado.</translation>
    </message>
    <message>
        <source>Another program controls the camera.</source>
        <translation>Otro programa controla la cámara.</translation>
    </message>
</context>
</TS>
