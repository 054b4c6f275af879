<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AdvTriggerBase</name>
    <message>
        <source>Select preset: %1</source>
        <translation>选择预设：%1</translation>
    </message>
    <message>
        <source>Error(s) on setting the preset:

%1</source>
        <translation>应用预设时出错：

%1</translation>
    </message>
    <message>
        <source>Execute</source>
        <translation>执行</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>  Failed to set %1 = %2, Current value: &apos;%3&apos;
</source>
        <translation>  无法设置 %1 = %2，当前值：“%3”
</translation>
    </message>
    <message>
        <source>  Executing &apos;%1&apos; failed.</source>
        <translation>  执行“%1”失败。</translation>
    </message>
    <message>
        <source>I/O lines</source>
        <translation>I/O 线路</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>line, setting</comment>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>%1: high</source>
        <comment>line</comment>
        <translation>%1：高电平</translation>
    </message>
    <message>
        <source>%1: low</source>
        <comment>line</comment>
        <translation>%1：低电平</translation>
    </message>
</context>
<context>
    <name>AdvTriggerDialog</name>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>高级触发 I/O</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>仅在相机停止采集时可进行完整的触发配置！</translation>
    </message>
    <message>
        <source>1. Select Preset:</source>
        <translation>1. 选择预设：</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>显示工具提示：</translation>
    </message>
    <message>
        <source>2. Configure trigger input sources:</source>
        <translation>2. 配置触发输入源：</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>选择器：</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>模式：</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>源：</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>激活方式：</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>延迟 (µs)：</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>执行软件触发</translation>
    </message>
    <message>
        <source>3. Configure inputs and outputs:</source>
        <translation>3. 配置输入和输出：</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>I/O 模式</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>反转</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>I/O 线路源</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Debounce
Mode</source>
        <translation>去抖
模式</translation>
    </message>
    <message>
        <source>LineDebounceMode</source>
        <translation>LineDebounceMode</translation>
    </message>
    <message>
        <source>Debounce
Duration (µs)</source>
        <translation>去抖
时间 (µs)</translation>
    </message>
    <message>
        <source>LineDebounceDuration</source>
        <translation>LineDebounceDuration</translation>
    </message>
    <message>
        <source>4. Configure acquisition mode and exposure mode:</source>
        <translation>4. 配置采集模式和曝光模式：</translation>
    </message>
    <message>
        <source>Acquisition Mode:</source>
        <translation>采集模式：</translation>
    </message>
    <message>
        <source>Frame Count:</source>
        <translation>帧数：</translation>
    </message>
    <message>
        <source>Exposure Mode:</source>
        <translation>曝光模式：</translation>
    </message>
    <message>
        <source>Configure Action Command:</source>
        <translation>配置动作命令：</translation>
    </message>
    <message>
        <source>Action Control features are not available in the camera.</source>
        <translation>此相机不支持动作控制功能。</translation>
    </message>
    <message>
        <source>Action Selector:</source>
        <translation>动作选择器：</translation>
    </message>
    <message>
        <source>Device Key (write-only):</source>
        <translation>设备密钥 (只写)：</translation>
    </message>
    <message>
        <source>Group Key:</source>
        <translation>组密钥：</translation>
    </message>
    <message>
        <source>Group Mask:</source>
        <translation>组掩码：</translation>
    </message>
    <message>
        <source>Queue Size:</source>
        <translation>队列大小：</translation>
    </message>
    <message>
        <source>PTP Enable</source>
        <translation>启用 PTP</translation>
    </message>
    <message>
        <source>PTP Operation Mode:</source>
        <translation>PTP 工作模式：</translation>
    </message>
    <message>
        <source>PTP Status:</source>
        <translation>PTP 状态：</translation>
    </message>
    <message>
        <source>PTP Servo Status:</source>
        <translation>PTP 伺服状态：</translation>
    </message>
    <message>
        <source>PTP Clock ID:</source>
        <translation>PTP 时钟 ID：</translation>
    </message>
    <message>
        <source>PTP ParentClock ID:</source>
        <translation>PTP 父时钟 ID：</translation>
    </message>
    <message>
        <source>PTP Grandmaster Clock ID:</source>
        <translation>PTP 最高级时钟 ID：</translation>
    </message>
    <message>
        <source>PTP Clock Accuracy:</source>
        <translation>PTP 时钟精度：</translation>
    </message>
    <message>
        <source>PTP Offset from master: </source>
        <translation>PTP 与主时钟的偏差： </translation>
    </message>
    <message>
        <source>PTP Data Set Latch</source>
        <translation>锁存 PTP 数据集</translation>
    </message>
    <message>
        <source>Timestamp Latch</source>
        <translation>锁存时间戳</translation>
    </message>
    <message>
        <source>Timestamp Latch Value:</source>
        <translation>时间戳锁存值：</translation>
    </message>
    <message>
        <source>Configure Software Signal:</source>
        <translation>配置软件信号：</translation>
    </message>
    <message>
        <source>Software Signal Control features are not available in the camera.</source>
        <translation>此相机不支持软件信号控制功能。</translation>
    </message>
    <message>
        <source>Signal Selector:</source>
        <translation>信号选择器：</translation>
    </message>
    <message>
        <source>Execute Signal Pulse</source>
        <translation>执行信号脉冲</translation>
    </message>
    <message>
        <source>Configure Counter and Timer:</source>
        <translation>配置计数器和定时器：</translation>
    </message>
    <message>
        <source>Counter and Timer features are not available in the camera.</source>
        <translation>此相机不支持计数器和定时器功能。</translation>
    </message>
    <message>
        <source>Counter</source>
        <translation>计数器</translation>
    </message>
    <message>
        <source>Event Source:</source>
        <translation>事件源：</translation>
    </message>
    <message>
        <source>Duration:</source>
        <translation>时长：</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>值：</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>可选</translation>
    </message>
    <message>
        <source>Trigger Source:</source>
        <translation>触发源：</translation>
    </message>
    <message>
        <source>T. Activation:</source>
        <translation>触发激活：</translation>
    </message>
    <message>
        <source>Reset Source:</source>
        <translation>复位源：</translation>
    </message>
    <message>
        <source>R. Activation:</source>
        <translation>复位激活：</translation>
    </message>
    <message>
        <source>Counter Status:</source>
        <translation>计数器状态：</translation>
    </message>
    <message>
        <source>Counter Value at Reset:</source>
        <translation>复位时的计数值：</translation>
    </message>
    <message>
        <source>Execute Reset</source>
        <translation>执行复位</translation>
    </message>
    <message>
        <source>Timer</source>
        <translation>定时器</translation>
    </message>
    <message>
        <source>Duration (µs):</source>
        <translation>时长 (µs)：</translation>
    </message>
    <message>
        <source>Timer Status:</source>
        <translation>定时器状态：</translation>
    </message>
    <message>
        <source>PWM:</source>
        <translation>PWM:</translation>
    </message>
    <message>
        <source>Frequency (Hz):</source>
        <translation>频率 (Hz)：</translation>
    </message>
    <message>
        <source>Duty Cycle (%):</source>
        <translation>占空比 (%)：</translation>
    </message>
    <message>
        <source>Trigger Features Status:</source>
        <translation>触发功能状态：</translation>
    </message>
</context>
<context>
    <name>AdvTriggerWidget</name>
    <message>
        <source>Form</source>
        <translation>窗体</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>仅在相机停止采集时可进行完整的触发配置！</translation>
    </message>
    <message>
        <source>Select Preset:</source>
        <translation>选择预设：</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>显示工具提示：</translation>
    </message>
    <message>
        <source>Configure Trigger:</source>
        <translation>配置触发：</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>源：</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>激活方式：</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>选择器：</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>模式：</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>延迟 (µs)：</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>执行软件触发</translation>
    </message>
    <message>
        <source>Configure Advanced Trigger Features:</source>
        <translation>配置高级触发功能：</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;Acquisition Mode, Action Command,&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;Counters and Timers:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;采集模式、动作命令、&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;计数器和定时器：&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Open dialog</source>
        <translation>打开对话框</translation>
    </message>
    <message>
        <source>Configure inputs and outputs:</source>
        <translation>配置输入和输出：</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>I/O 模式</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>反转</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>I/O 线路源</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Show Trigger Features Status:</source>
        <translation>显示触发功能状态：</translation>
    </message>
    <message>
        <source>Trigger IO</source>
        <translation>触发 I/O</translation>
    </message>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>高级触发 I/O</translation>
    </message>
</context>
<context>
    <name>BaseTabPluginWidget</name>
    <message>
        <source>Vendor not supported for plugins, widget not created.</source>
        <translation>插件不支持该厂商，未创建控件。</translation>
    </message>
</context>
<context>
    <name>SettingsTreeModel</name>
    <message>
        <source>Trigger features status</source>
        <translation>触发功能状态</translation>
    </message>
</context>
<context>
    <name>TabExtensionPlugin</name>
    <message>
        <source>Please use the Advanced Trigger Dialog.</source>
        <translation>请使用“高级触发 I/O”对话框。</translation>
    </message>
</context>
</TS>
