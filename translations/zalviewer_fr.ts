<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>CameraSession</name>
    <message>
        <source>The acquisition could not be started. %1</source>
        <translation>L’acquisition n’a pas pu être démarrée. %1</translation>
    </message>
    <message>
        <source>The acquisition did not stop cleanly. %1</source>
        <translation>L’acquisition ne s’est pas arrêtée correctement. %1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows a camera&apos;s live image, and the tab extensions that support the camera.
Without --camera and --simulate it starts a simulated camera of its own.</source>
        <translation>Affiche l’image en direct d’une caméra et les extensions d’onglet qui la prennent en charge.
Sans --camera ni --simulate, une caméra simulée est démarrée.</translation>
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
Codes de sortie&#xa0;:
  %1  succès
  %2  arguments incorrects
  %3  aucune caméra trouvée, ou impossible de l’ouvrir
  %4  un fichier du dossier des plugins n’a pas pu être utilisé
  %5  la capture d’écran n’a pas pu être enregistrée
  %6  pas d’écran
</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;.</source>
        <translation>Argument inattendu&#xa0;: «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>--camera and --simulate exclude each other.</source>
        <translation>--camera et --simulate s’excluent mutuellement.</translation>
    </message>
    <message>
        <source>--camera needs an id, a serial number, an address or &quot;first&quot;.</source>
        <translation>--camera attend un identifiant, un numéro de série, une adresse ou «&#xa0;first&#xa0;».</translation>
    </message>
    <message>
        <source>There is no simulated model &quot;%1&quot;. Known models: %2.</source>
        <translation>Le modèle simulé «&#xa0;%1&#xa0;» n’existe pas. Modèles connus&#xa0;: %2.</translation>
    </message>
    <message>
        <source>--acquire takes &quot;on&quot; or &quot;off&quot;, not &quot;%1&quot;.</source>
        <translation>--acquire attend «&#xa0;on&#xa0;» ou «&#xa0;off&#xa0;», et non «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>There is no folder &quot;%1&quot;.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’existe pas.</translation>
    </message>
    <message>
        <source>--screenshot needs the name of a file.</source>
        <translation>--screenshot attend un nom de fichier.</translation>
    </message>
    <message>
        <source>--delay is for --screenshot only.</source>
        <translation>--delay ne s’utilise qu’avec --screenshot.</translation>
    </message>
    <message>
        <source>--delay takes 0 to 60000 milliseconds, not &quot;%1&quot;.</source>
        <translation>--delay attend de 0 à 60000 millisecondes, et non «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>--size takes a size from 640x480 to 7680x4320, not &quot;%1&quot;.</source>
        <translation>--size attend une taille de 640x480 à 7680x4320, et non «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>--palette takes &quot;light&quot; or &quot;dark&quot;, not &quot;%1&quot;.</source>
        <translation>--palette attend «&#xa0;light&#xa0;» ou «&#xa0;dark&#xa0;», et non «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>--language takes one of %1, not &quot;%2&quot;.</source>
        <translation>--language attend l’une des valeurs %1, et non «&#xa0;%2&#xa0;».</translation>
    </message>
    <message>
        <source>Show this help and exit.</source>
        <translation>Afficher cette aide et quitter.</translation>
    </message>
    <message>
        <source>Show the version and exit.</source>
        <translation>Afficher la version et quitter.</translation>
    </message>
    <message>
        <source>List the cameras that are found and exit.</source>
        <translation>Lister les caméras trouvées et quitter.</translation>
    </message>
    <message>
        <source>Open the camera with this id, serial number or network address, or the first one found (&quot;first&quot;).</source>
        <translation>Ouvrir la caméra qui a cet identifiant, ce numéro de série ou cette adresse réseau, ou la première trouvée («&#xa0;first&#xa0;»).</translation>
    </message>
    <message>
        <source>Start a simulated camera of this model and open it (default: full; known: %1).</source>
        <translation>Démarrer une caméra simulée de ce modèle et l’ouvrir (par défaut&#xa0;: full&#xa0;; connus&#xa0;: %1).</translation>
    </message>
    <message>
        <source>Acquire images from the start (&quot;on&quot;) or not (&quot;off&quot;). Default: off, and on for a screenshot.</source>
        <translation>Acquérir des images dès le départ («&#xa0;on&#xa0;») ou non («&#xa0;off&#xa0;»). Par défaut&#xa0;: off, et on pour une capture d’écran.</translation>
    </message>
    <message>
        <source>Load the tab extensions from this folder (default: plugins, beside the program).</source>
        <translation>Charger les extensions d’onglet depuis ce dossier (par défaut&#xa0;: plugins, à côté du programme).</translation>
    </message>
    <message>
        <source>Save the window as a PNG image once the tabs are filled and images arrive, and exit.</source>
        <translation>Enregistrer la fenêtre comme image PNG dès que les onglets sont remplis et que des images arrivent, puis quitter.</translation>
    </message>
    <message>
        <source>Wait this long before the screenshot (default: 1500).</source>
        <translation>Attendre ce délai avant la capture d’écran (par défaut&#xa0;: 1500).</translation>
    </message>
    <message>
        <source>Size of the window in pixels.</source>
        <translation>Taille de la fenêtre en pixels.</translation>
    </message>
    <message>
        <source>Use this palette instead of the desktop&apos;s: light or dark.</source>
        <translation>Utiliser cette palette au lieu de celle du bureau&#xa0;: light ou dark.</translation>
    </message>
    <message>
        <source>Speak this language instead of the desktop&apos;s: %1.</source>
        <translation>Utiliser cette langue au lieu de celle du bureau&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>ExtensionArea</name>
    <message>
        <source>No tab extension was found.</source>
        <translation>Aucune extension d’onglet n’a été trouvée.</translation>
    </message>
</context>
<context>
    <name>FrameConverter</name>
    <message>
        <source>Images in the pixel format 0x%1 cannot be shown.</source>
        <translation>Les images au format de pixel 0x%1 ne peuvent pas être affichées.</translation>
    </message>
    <message>
        <source>The camera delivered an incomplete image.</source>
        <translation>La caméra a livré une image incomplète.</translation>
    </message>
    <message>
        <source>Images of %1 x %2 pixels cannot be shown.</source>
        <translation>Les images de %1 x %2 pixels ne peuvent pas être affichées.</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Live image</source>
        <translation>Image en direct</translation>
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
        <translation>Acquisition</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>No image yet. Start the acquisition to see one.</source>
        <translation>Pas encore d’image. Démarrez l’acquisition pour en voir une.</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrer</translation>
    </message>
    <message>
        <source>Stop the acquisition (F5)</source>
        <translation>Arrêter l’acquisition (F5)</translation>
    </message>
    <message>
        <source>Start the acquisition (F5)</source>
        <translation>Démarrer l’acquisition (F5)</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>Acquisition en cours</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Arrêtée</translation>
    </message>
    <message>
        <source>Frames: %1</source>
        <translation>Images&#xa0;: %1</translation>
    </message>
    <message>
        <source>Camera lost</source>
        <translation>Caméra perdue</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. Close the viewer and open it again when the camera is back.</source>
        <translation>La connexion à la caméra %1 est perdue. Fermez la visionneuse et rouvrez-la lorsque la caméra est de nouveau disponible.</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. %2 Close the viewer and open it again when the camera is free.</source>
        <translation>La connexion à la caméra %1 est perdue. %2 Fermez la visionneuse et rouvrez-la lorsque la caméra sera libre.</translation>
    </message>
</context>
<context>
    <name>TabExtensions</name>
    <message>
        <source>&quot;%1&quot; is not a plugin. %2</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un plugin. %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a plugin of another kind (%2).</source>
        <translation>«&#xa0;%1&#xa0;» est un plugin d’un autre type (%2).</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; could not be loaded. %2</source>
        <translation>L’extension d’onglet «&#xa0;%1&#xa0;» n’a pas pu être chargée. %2</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; was made for another version of the viewer (it lacks %2).</source>
        <translation>L’extension d’onglet «&#xa0;%1&#xa0;» a été conçue pour une autre version de la visionneuse (il lui manque %2).</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; failed. %2</source>
        <translation>L’extension d’onglet «&#xa0;%1&#xa0;» a échoué. %2</translation>
    </message>
    <message>
        <source>It gave no reason.</source>
        <translation>Elle n’a donné aucune raison.</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; does not support this camera.</source>
        <translation>L’extension d’onglet «&#xa0;%1&#xa0;» ne prend pas en charge cette caméra.</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; built no tab (code %2).</source>
        <translation>L’extension d’onglet «&#xa0;%1&#xa0;» n’a créé aucun onglet (code %2).</translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>There is no display to open the window on. Use --screenshot FILE to save a picture of it.</source>
        <translation>Il n’y a pas d’écran sur lequel ouvrir la fenêtre. Utilisez --screenshot FICHIER pour en enregistrer une image.</translation>
    </message>
    <message>
        <source>The screenshot could not be written to &quot;%1&quot;.</source>
        <translation>La capture d’écran n’a pas pu être enregistrée dans «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>No camera was found.</source>
        <translation>Aucune caméra n’a été trouvée.</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1). Use --screenshot FILE to save a picture of it.</source>
        <translation>Il n’y a pas d’écran utilisable sur lequel ouvrir la fenêtre (%1). Utilisez --screenshot FICHIER pour en enregistrer une image.</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1).</source>
        <translation>Il n’y a pas d’écran utilisable sur lequel ouvrir la fenêtre (%1).</translation>
    </message>
</context>
<context>
    <name>ZalCPP</name>
    <message>
        <source>The operation succeeded.</source>
        <translation>L’opération a réussi.</translation>
    </message>
    <message>
        <source>The feature does not offer this operation.</source>
        <translation>La fonctionnalité ne propose pas cette opération.</translation>
    </message>
    <message>
        <source>Nothing was found.</source>
        <translation>Rien n’a été trouvé.</translation>
    </message>
    <message>
        <source>The feature is not available at the moment.</source>
        <translation>La fonctionnalité n’est pas disponible pour le moment.</translation>
    </message>
    <message>
        <source>The camera is not open, or the connection to it is lost.</source>
        <translation>La caméra n’est pas ouverte, ou la connexion est perdue.</translation>
    </message>
    <message>
        <source>The feature has another data type.</source>
        <translation>La fonctionnalité a un autre type de données.</translation>
    </message>
    <message>
        <source>An argument of the call is unusable.</source>
        <translation>Un argument de l’appel est inutilisable.</translation>
    </message>
    <message>
        <source>The feature cannot be read at the moment.</source>
        <translation>La fonctionnalité ne peut pas être lue pour le moment.</translation>
    </message>
    <message>
        <source>The feature cannot be written at the moment.</source>
        <translation>La fonctionnalité ne peut pas être modifiée pour le moment.</translation>
    </message>
    <message>
        <source>The value is outside the feature&apos;s range or not one of its steps.</source>
        <translation>La valeur est hors de la plage de la fonctionnalité ou ne correspond pas à son pas.</translation>
    </message>
    <message>
        <source>The buffer is too small for the data.</source>
        <translation>Le tampon est trop petit pour les données.</translation>
    </message>
    <message>
        <source>The camera did not answer in time.</source>
        <translation>La caméra n’a pas répondu à temps.</translation>
    </message>
    <message>
        <source>The connection to the camera reported a failure.</source>
        <translation>La connexion à la caméra a signalé une erreur.</translation>
    </message>
    <message>
        <source>Memory or another resource ran out.</source>
        <translation>La mémoire ou une autre ressource est épuisée.</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>L’opération a échoué.</translation>
    </message>
    <message>
        <source>Another program controls the camera.</source>
        <translation>Un autre programme contrôle la caméra.</translation>
    </message>
</context>
</TS>
