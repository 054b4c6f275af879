<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CameraSession</name>
    <message>
        <source>The acquisition could not be started. %1</source>
        <translation>无法开始采集。%1</translation>
    </message>
    <message>
        <source>The acquisition did not stop cleanly. %1</source>
        <translation>采集未能正常停止。%1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows a camera&apos;s live image, and the tab extensions that support the camera.
Without --camera and --simulate it starts a simulated camera of its own.</source>
        <translation>显示相机的实时图像，以及支持该相机的选项卡扩展。
未指定 --camera 和 --simulate 时，将启动一台模拟相机。</translation>
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
退出代码：
  %1  成功
  %2  参数错误
  %3  未找到相机，或无法打开相机
  %4  插件文件夹中有文件无法使用
  %5  无法写入屏幕截图
  %6  没有显示器
</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;.</source>
        <translation>意外的参数“%1”。</translation>
    </message>
    <message>
        <source>--camera and --simulate exclude each other.</source>
        <translation>--camera 与 --simulate 不能同时使用。</translation>
    </message>
    <message>
        <source>--camera needs an id, a serial number, an address or &quot;first&quot;.</source>
        <translation>--camera 需要一个 ID、序列号、地址或“first”。</translation>
    </message>
    <message>
        <source>There is no simulated model &quot;%1&quot;. Known models: %2.</source>
        <translation>没有模拟型号“%1”。已知型号：%2。</translation>
    </message>
    <message>
        <source>--acquire takes &quot;on&quot; or &quot;off&quot;, not &quot;%1&quot;.</source>
        <translation>--acquire 只接受“on”或“off”，不接受“%1”。</translation>
    </message>
    <message>
        <source>There is no folder &quot;%1&quot;.</source>
        <translation>文件夹“%1”不存在。</translation>
    </message>
    <message>
        <source>--screenshot needs the name of a file.</source>
        <translation>--screenshot 需要一个文件名。</translation>
    </message>
    <message>
        <source>--delay is for --screenshot only.</source>
        <translation>--delay 只能与 --screenshot 一起使用。</translation>
    </message>
    <message>
        <source>--delay takes 0 to 60000 milliseconds, not &quot;%1&quot;.</source>
        <translation>--delay 只接受 0 到 60000 毫秒，不接受“%1”。</translation>
    </message>
    <message>
        <source>--size takes a size from 640x480 to 7680x4320, not &quot;%1&quot;.</source>
        <translation>--size 只接受 640x480 到 7680x4320 的尺寸，不接受“%1”。</translation>
    </message>
    <message>
        <source>--palette takes &quot;light&quot; or &quot;dark&quot;, not &quot;%1&quot;.</source>
        <translation>--palette 只接受“light”或“dark”，不接受“%1”。</translation>
    </message>
    <message>
        <source>--language takes one of %1, not &quot;%2&quot;.</source>
        <translation>--language 只接受 %1 之一，不接受“%2”。</translation>
    </message>
    <message>
        <source>Show this help and exit.</source>
        <translation>显示此帮助并退出。</translation>
    </message>
    <message>
        <source>Show the version and exit.</source>
        <translation>显示版本并退出。</translation>
    </message>
    <message>
        <source>List the cameras that are found and exit.</source>
        <translation>列出找到的相机并退出。</translation>
    </message>
    <message>
        <source>Open the camera with this id, serial number or network address, or the first one found (&quot;first&quot;).</source>
        <translation>打开具有此 ID、序列号或网络地址的相机，或找到的第一台相机（“first”）。</translation>
    </message>
    <message>
        <source>Start a simulated camera of this model and open it (default: full; known: %1).</source>
        <translation>启动此型号的模拟相机并打开（默认：full；已知：%1）。</translation>
    </message>
    <message>
        <source>Acquire images from the start (&quot;on&quot;) or not (&quot;off&quot;). Default: off, and on for a screenshot.</source>
        <translation>启动时即采集图像（“on”）或不采集（“off”）。默认：off，屏幕截图时为 on。</translation>
    </message>
    <message>
        <source>Load the tab extensions from this folder (default: plugins, beside the program).</source>
        <translation>从此文件夹加载选项卡扩展（默认：程序所在位置的 plugins）。</translation>
    </message>
    <message>
        <source>Save the window as a PNG image once the tabs are filled and images arrive, and exit.</source>
        <translation>在选项卡填充完毕且图像到达后将窗口保存为 PNG 图像，然后退出。</translation>
    </message>
    <message>
        <source>Wait this long before the screenshot (default: 1500).</source>
        <translation>屏幕截图前的等待时间（默认：1500）。</translation>
    </message>
    <message>
        <source>Size of the window in pixels.</source>
        <translation>窗口大小（像素）。</translation>
    </message>
    <message>
        <source>Use this palette instead of the desktop&apos;s: light or dark.</source>
        <translation>使用此配色代替桌面配色：light 或 dark。</translation>
    </message>
    <message>
        <source>Speak this language instead of the desktop&apos;s: %1.</source>
        <translation>使用此语言代替桌面语言：%1。</translation>
    </message>
</context>
<context>
    <name>ExtensionArea</name>
    <message>
        <source>No tab extension was found.</source>
        <translation>未找到选项卡扩展。</translation>
    </message>
</context>
<context>
    <name>FrameConverter</name>
    <message>
        <source>Images in the pixel format 0x%1 cannot be shown.</source>
        <translation>无法显示像素格式为 0x%1 的图像。</translation>
    </message>
    <message>
        <source>The camera delivered an incomplete image.</source>
        <translation>相机传来的图像不完整。</translation>
    </message>
    <message>
        <source>Images of %1 x %2 pixels cannot be shown.</source>
        <translation>无法显示 %1 x %2 像素的图像。</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Live image</source>
        <translation>实时图像</translation>
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
        <translation>采集</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>No image yet. Start the acquisition to see one.</source>
        <translation>尚无图像。开始采集即可看到图像。</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Stop the acquisition (F5)</source>
        <translation>停止采集 (F5)</translation>
    </message>
    <message>
        <source>Start the acquisition (F5)</source>
        <translation>开始采集 (F5)</translation>
    </message>
    <message>
        <source>Acquiring</source>
        <translation>正在采集</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>Frames: %1</source>
        <translation>帧数：%1</translation>
    </message>
    <message>
        <source>Camera lost</source>
        <translation>相机已断开</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. Close the viewer and open it again when the camera is back.</source>
        <translation>与相机 %1 的连接已断开。请关闭查看器，待相机恢复后重新打开。</translation>
    </message>
    <message>
        <source>The connection to the camera %1 is lost. %2 Close the viewer and open it again when the camera is free.</source>
        <translation>与相机 %1 的连接已断开。%2请关闭查看器，待相机空闲后再重新打开。</translation>
    </message>
</context>
<context>
    <name>TabExtensions</name>
    <message>
        <source>&quot;%1&quot; is not a plugin. %2</source>
        <translation>“%1”不是插件。%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a plugin of another kind (%2).</source>
        <translation>“%1”是其他类型的插件（%2）。</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; could not be loaded. %2</source>
        <translation>无法加载选项卡扩展“%1”。%2</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; was made for another version of the viewer (it lacks %2).</source>
        <translation>选项卡扩展“%1”适用于其他版本的查看器（缺少 %2）。</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; failed. %2</source>
        <translation>选项卡扩展“%1”出错。%2</translation>
    </message>
    <message>
        <source>It gave no reason.</source>
        <translation>未说明原因。</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; does not support this camera.</source>
        <translation>选项卡扩展“%1”不支持此相机。</translation>
    </message>
    <message>
        <source>The tab extension &quot;%1&quot; built no tab (code %2).</source>
        <translation>选项卡扩展“%1”未创建选项卡（代码 %2）。</translation>
    </message>
</context>
<context>
    <name>Viewer</name>
    <message>
        <source>There is no display to open the window on. Use --screenshot FILE to save a picture of it.</source>
        <translation>没有可打开窗口的显示器。请使用 --screenshot 文件名 保存窗口图像。</translation>
    </message>
    <message>
        <source>The screenshot could not be written to &quot;%1&quot;.</source>
        <translation>无法将屏幕截图写入“%1”。</translation>
    </message>
    <message>
        <source>No camera was found.</source>
        <translation>未找到相机。</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1). Use --screenshot FILE to save a picture of it.</source>
        <translation>没有可用于打开窗口的显示器 (%1)。请使用 --screenshot 文件名 保存窗口图像。</translation>
    </message>
    <message>
        <source>There is no usable display to open the window on (%1).</source>
        <translation>没有可用于打开窗口的显示器 (%1)。</translation>
    </message>
</context>
<context>
    <name>ZalCPP</name>
    <message>
        <source>The operation succeeded.</source>
        <translation>操作成功。</translation>
    </message>
    <message>
        <source>The feature does not offer this operation.</source>
        <translation>该功能不提供此操作。</translation>
    </message>
    <message>
        <source>Nothing was found.</source>
        <translation>未找到任何内容。</translation>
    </message>
    <message>
        <source>The feature is not available at the moment.</source>
        <translation>该功能目前不可用。</translation>
    </message>
    <message>
        <source>The camera is not open, or the connection to it is lost.</source>
        <translation>相机未打开，或与相机的连接已断开。</translation>
    </message>
    <message>
        <source>The feature has another data type.</source>
        <translation>该功能的数据类型不同。</translation>
    </message>
    <message>
        <source>An argument of the call is unusable.</source>
        <translation>调用的参数无效。</translation>
    </message>
    <message>
        <source>The feature cannot be read at the moment.</source>
        <translation>该功能目前无法读取。</translation>
    </message>
    <message>
        <source>The feature cannot be written at the moment.</source>
        <translation>该功能目前无法写入。</translation>
    </message>
    <message>
        <source>The value is outside the feature&apos;s range or not one of its steps.</source>
        <translation>该值超出功能的范围，或不符合其步长。</translation>
    </message>
    <message>
        <source>The buffer is too small for the data.</source>
        <translation>缓冲区太小，无法容纳数据。</translation>
    </message>
    <message>
        <source>The camera did not answer in time.</source>
        <translation>相机未及时响应。</translation>
    </message>
    <message>
        <source>The connection to the camera reported a failure.</source>
        <translation>与相机的连接报告了错误。</translation>
    </message>
    <message>
        <source>Memory or another resource ran out.</source>
        <translation>内存或其他资源不足。</translation>
    </message>
    <message>
        <source>The operation failed.</source>
        <translation>操作失败。</translation>
    </message>
    <message>
        <source>Another program controls the camera.</source>
        <translation>另一个程序正在控制相机。</translation>
    </message>
</context>
</TS>
