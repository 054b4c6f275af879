<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>CameraSession</name>
    <message>
        <source>The acquisition could not be started. %1</source>
        <translation>画像取得を開始できませんでした。%1</translation>
    </message>
    <message>
        <source>The acquisition did not stop cleanly. %1</source>
        <translation>画像取得が正常に停止しませんでした。%1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows a camera&apos;s live image, and the tab extensions that support the camera.
Without --camera and --simulate it starts a simulated camera of its own.</source>
        <translation>カメラのライブ画像と、そのカメラに対応するタブ拡張を表示します。
--camera も --simulate も指定しない場合は、シミュレーションカメラを起動します。</translation>
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
終了コード:
  %1  正常終了
  %2  引数の誤り
  %3  カメラが見つからない、または開けない
  %4  プラグインフォルダーに使用できないファイルがある
  %5  スクリーンショットを保存できない
  %6  ディスプレイがない
</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;.</source>
        <translation>予期しない引数「%1」です。</translation>
    </message>
    <message>
        <source>--camera and --simulate exclude each other.</source>
        <translation>--camera と --simulate は同時に指定できません。</translation>
    </message>
    <message>
        <source>--camera needs an id, a serial number, an address or &quot;first&quot;.</source>
        <translation>--camera には ID、シリアル番号、アドレス、または「first」を指定してください。</translation>
    </message>
    <message>
        <source>There is no simulated model &quot;%1&quot;. Known models: %2.</source>
        <translation>シミュレーションモデル「%1」はありません。使用できるモデル: %2。</translation>
    </message>
    <message>
        <source>--acquire takes &quot;on&quot; or &quot;off&quot;, not &quot;%1&quot;.</source>
        <translation>--acquire に指定できるのは「on」または「off」です。「%1」は指定できません。</translation>
    </message>
    <message>
        <source>There is no folder &quot;%1&quot;.</source>
        <translation>フォルダー「%1」はありません。</translation>
    </message>
    <message>
        <source>--screenshot needs the name of a file.</source>
        <translation>--screenshot にはファイル名を指定してください。</translation>
    </message>
    <message>
        <source>--delay is for --screenshot only.</source>
        <translation>--delay は --screenshot と一緒に指定してください。</translation>
    </message>
    <message>
        <source>--delay takes 0 to 60000 milliseconds, not &quot;%1&quot;.</source>
        <translation>--delay に指定できるのは 0～60000 ミリ秒です。「%1」は指定できません。</translation>
    </message>
    <message>
        <source>--size takes a size from 640x480 to 7680x4320, not &quot;%1&quot;.</source>
        <translation>--size に指定できるのは 640x480～7680x4320 です。「%1」は指定できません。</translation>
    </message>
    <message>
        <source>--palette takes &quot;light&quot; or &quot;dark&quot;, not &quot;%1&quot;.</source>
        <translation>--palette に指定できるのは「light」または「dark」です。「%1」は指定できません。</translation>
    </message>
    <message>
        <source>--language takes one of %1, not &quot;%2&quot;.</source>
        <translation>--language に指定できるのは %1 のいずれかです。「%2」は指定できません。</translation>
    </message>
    <message>
        <source>Show this help and exit.</source>
        <translation>このヘルプを表示して終了します。</translation>
    </message>
    <message>
        <source>Show the version and exit.</source>
        <translation>バージョンを表示して終了します。</translation>
    </message>
    <message>
        <source>List the cameras that are found and exit.</source>
        <translation>見つかったカメラを一覧表示して終了します。</translation>
    </message>
    <message>
        <source>Open the camera with this id, serial number or network address, or the first one found (&quot;first&quot;).</source>
        <translation>この ID、シリアル番号、またはネットワークアドレスのカメラを開きます。「first」を指定すると最初に見つかったカメラを開きます。</translation>
    </message>
    <message>
        <source>Start a simulated camera of this model and open it (default: full; known: %1).</source>
        <translation>このモデルのシミュレーションカメラを起動して開きます (既定値: full、使用可能: %1)。</translation>
    </message>
    <message>
        <source>Acquire images from the start (&quot;on&quot;) or not (&quot;off&quot;). Default: off, and on for a screenshot.</source>
        <translation>起動時から画像を取得する (「on」) か、しない (「off」) かを指定します。既定値は off、スクリーンショットの場合は on です。</translation>
    </message>
    <message>
        <source>Load the tab extensions from this folder (default: plugins, beside the program).</source>
        <translation>タブ拡張をこのフォルダーから読み込みます (既定値: プログラムと同じ場所の plugins)。</translation>
    </message>
    <message>
        <source>Save the window as a PNG image once the tabs are filled and images arrive, and exit.</source>
        <translation>タブの表示が整い画像が届いたらウィンドウを PNG 画像として保存し、終了します。</translation>
    </message>
    <message>
        <source>Wait this long before the screenshot (default: 1500).</source>
        <translation>スクリーンショットまでの待ち時間です (既定値: 1500)。</translation>
    </message>
    <message>
        <source>Size of the window in pixels.</source>
        <translation>ウィンドウのサイズ (ピクセル単位) です。</translation>
    </message>
    <message>
        <source>Use this palette instead of the desktop&apos;s: light or dark.</source>
        <translation>デスクトップの配色の代わりにこの配色を使用します: light または dark。</translation>
    </message>
    <message>
        <source>Speak this language instead of the desktop&apos;s: %1.</source>
        <translation>デスクトップの言語の代わりにこの言語を使用します: %1。</translation>
    </message>
</context>
<context>
    <name>ExtensionArea</name>
    <message>
        <source>No tab extension was found.</source>
        <translation>タブ拡張が見つかりませんでした。</translation>
    </message>
</context>
<context>
    <name>FrameConverter</name>
    <message>
        <source>Images in the pixel format 0x%1 cannot be shown.</source>
        <translation>ピクセルフォーマット 0x%1 の画像は表示できません。</translation>
    </message>
    <message>
        <source>The camera delivered an incomplete image.</source>
        <translation>カメラから不完全な画像が届きました。</translation>
    </message>
    <message>
        <source>Images of %1 x %2 pixels cannot be shown.</source>
        <translation>%1 x %2 ピクセルの画像は表示できません。</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Live image</source>
        <translation>ライブ画像</translation>
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
        <translation>画像取得</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>No image yet. Start the acquisition to see one.</source>
        <translation>まだ画像がありません。画像取得を開始すると表示されます。</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>開始</translation>
    </message>
    <message>
        <source>Stop the acquisition (F5)</source>
        <translation>画像取得を停止 (F5)</translation>
    </message>
    <message>
        <source>Start the acquisition (F5)</source>
        <translation>画像取得を開始 (F5)</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>取得中</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>停止中</translation>
    </message>
    <message>
        <source>Frames: %1</source>
        <translation>フレーム数: %1</translation>
    </message>
    <message>
        <source>Camera lost</source>
        <translation>カメラ切断</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. Close the viewer and open it again when the camera is back.</source>
        <translation>カメラ %1 との接続が切れました。ビューアーを閉じ、カメラが復帰してから開き直してください。</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. %2 Close the viewer and open it again when the camera is free.</source>
        <translation>カメラ %1 との接続が切れました。%2ビューアーを閉じ、カメラが解放されてから開き直してください。</translation>
    </message>
</context>
<context>
    <name>TabExtensions</name>
    <message>
        <source>&quot;%1&quot; is not a plugin. %2</source>
        <translation>「%1」はプラグインではありません。%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a plugin of another kind (%2).</source>
        <translation>「%1」は別の種類のプラグインです (%2)。</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; could not be loaded. %2</source>
        <translation>タブ拡張「%1」を読み込めませんでした。%2</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; was made for another version of the viewer (it lacks %2).</source>
        <translation>タブ拡張「%1」は別のバージョンのビューアー用です (%2 がありません)。</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; failed. %2</source>
        <translation>タブ拡張「%1」でエラーが発生しました。%2</translation>
    </message>
    <message>
        <source>It gave no reason.</source>
        <translation>理由は示されていません。</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; does not support this camera.</source>
        <translation>タブ拡張「%1」はこのカメラに対応していません。</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; built no tab (code %2).</source>
        <translation>タブ拡張「%1」はタブを作成しませんでした (コード %2)。</translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>There is no display to open the window on. Use --screenshot FILE to save a picture of it.</source>
        <translation>ウィンドウを開くディスプレイがありません。--screenshot ファイル名 を指定すると、ウィンドウの画像を保存できます。</translation>
    </message>
    <message>
        <source>The screenshot could not be written to &quot;%1&quot;.</source>
        <translation>スクリーンショットを「%1」に保存できませんでした。</translation>
    </message>
    <message>
        <source>No camera was found.</source>
        <translation>カメラが見つかりませんでした。</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1). Use --screenshot FILE to save a picture of it.</source>
        <translation>ウィンドウを開ける使用可能なディスプレイがありません (%1)。--screenshot ファイル名 を指定すると、ウィンドウの画像を保存できます。</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1).</source>
        <translation>ウィンドウを開ける使用可能なディスプレイがありません (%1)。</translation>
    </message>
</context>
<context>
    <name>ZalCPP</name>
    <message>
        <source>The operation succeeded.</source>
        <translation>操作は成功しました。</translation>
    </message>
    <message>
        <source>The feature does not offer this operation.</source>
        <translation>この機能では、この操作を実行できません。</translation>
    </message>
    <message>
        <source>Nothing was found.</source>
        <translation>何も見つかりませんでした。</translation>
    </message>
    <message>
        <source>The feature is not available at the moment.</source>
        <translation>この機能は現在使用できません。</translation>
    </message>
    <message>
        <source>The camera is not open, or the connection to it is lost.</source>
        <translation>カメラが開いていないか、接続が切れています。</translation>
    </message>
    <message>
        <source>The feature has another data type.</source>
        <translation>この機能のデータ型が異なります。</translation>
    </message>
    <message>
        <source>An argument of the call is unusable.</source>
        <translation>呼び出しの引数が正しくありません。</translation>
    </message>
    <message>
        <source>The feature cannot be read at the moment.</source>
        <translation>この機能は現在読み出せません。</translation>
    </message>
    <message>
        <source>The feature cannot be written at the moment.</source>
        <translation>この機能は現在書き込めません。</translation>
    </message>
    <message>
        <source>The value is outside the feature&apos;s range or not one of its steps.</source>
        <translation>値がこの機能の範囲外か、刻み幅に合っていません。</translation>
    </message>
    <message>
        <source>The buffer is too small for the data.</source>
        <translation>データに対してバッファーが小さすぎます。</translation>
    </message>
    <message>
        <source>The camera did not answer in time.</source>
        <translation>カメラが時間内に応答しませんでした。</translation>
    </message>
    <message>
        <source>The connection to the camera reported a failure.</source>
        <translation>カメラとの接続でエラーが発生しました。</translation>
    </message>
    <message>
        <source>Memory or another resource ran out.</source>
        <translation>メモリーまたはその他のリソースが不足しています。</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>操作に失敗しました。</translation>
    </message>
    <message>
        <source>Another program controls the camera.</source>
        <translation>別のプログラムがカメラを制御しています。</translation>
    </message>
</context>
</TS>
