<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>AdvTriggerBase</name>
    <message>
        <source>Select preset: %1</source>
        <translation>プリセット: %1</translation>
    </message>
    <message>
        <source>Error(s) on setting the preset:

%1</source>
        <translation>プリセットの適用中にエラーが発生しました:

%1</translation>
    </message>
    <message>
        <source>Execute</source>
        <translation>実行</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>  Failed to set %1 = %2, Current value: &apos;%3&apos;
</source>
        <translation>  %1 = %2 を設定できませんでした。現在の値:「%3」
</translation>
    </message>
    <message>
        <source>  Executing &apos;%1&apos; failed.</source>
        <translation>  「%1」の実行に失敗しました。</translation>
    </message>
    <message>
        <source>I/O lines</source>
        <translation>I/O ライン</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>line, setting</comment>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>%1: high</source>
        <comment>line</comment>
        <translation>%1: ハイ</translation>
    </message>
    <message>
        <source>%1: low</source>
        <comment>line</comment>
        <translation>%1: ロー</translation>
    </message>
</context>
<context>
    <name>AdvTriggerDialog</name>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>高度なトリガー I/O</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>すべてのトリガー設定は、画像取得の停止中のみ可能です！</translation>
    </message>
    <message>
        <source>1. Select Preset:</source>
        <translation>1. プリセット:</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>ツールチップ表示:</translation>
    </message>
    <message>
        <source>2. Configure trigger input sources:</source>
        <translation>2. トリガー入力ソースの設定:</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>セレクター:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>モード:</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>ソース:</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>アクティベーション:</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>遅延 (µs):</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>SW トリガー実行</translation>
    </message>
    <message>
        <source>3. Configure inputs and outputs:</source>
        <translation>3. 入出力の設定:</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>I/O モード</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>反転</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>I/O ラインソース</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Debounce
Mode</source>
        <translation>デバウンス
モード</translation>
    </message>
    <message>
        <source>LineDebounceMode</source>
        <translation>LineDebounceMode</translation>
    </message>
    <message>
        <source>Debounce
Duration (µs)</source>
        <translation>デバウンス
時間 (µs)</translation>
    </message>
    <message>
        <source>LineDebounceDuration</source>
        <translation>LineDebounceDuration</translation>
    </message>
    <message>
        <source>4. Configure acquisition mode and exposure mode:</source>
        <translation>4. 画像取得モードと露光モードの設定:</translation>
    </message>
    <message>
        <source>Acquisition Mode:</source>
        <translation>画像取得モード:</translation>
    </message>
    <message>
        <source>Frame Count:</source>
        <translation>フレーム数:</translation>
    </message>
    <message>
        <source>Exposure Mode:</source>
        <translation>露光モード:</translation>
    </message>
    <message>
        <source>Configure Action Command:</source>
        <translation>アクションコマンドの設定:</translation>
    </message>
    <message>
        <source>Action Control features are not available in the camera.</source>
        <translation>このカメラではアクション制御機能を使用できません。</translation>
    </message>
    <message>
        <source>Action Selector:</source>
        <translation>アクションセレクター:</translation>
    </message>
    <message>
        <source>Device Key (write-only):</source>
        <translation>デバイスキー (書込専用):</translation>
    </message>
    <message>
        <source>Group Key:</source>
        <translation>グループキー:</translation>
    </message>
    <message>
        <source>Group Mask:</source>
        <translation>グループマスク:</translation>
    </message>
    <message>
        <source>Queue Size:</source>
        <translation>キューサイズ:</translation>
    </message>
    <message>
        <source>PTP Enable</source>
        <translation>PTP を有効化</translation>
    </message>
    <message>
        <source>PTP Operation Mode:</source>
        <translation>PTP 動作モード:</translation>
    </message>
    <message>
        <source>PTP Status:</source>
        <translation>PTP 状態:</translation>
    </message>
    <message>
        <source>PTP Servo Status:</source>
        <translation>PTP サーボ状態:</translation>
    </message>
    <message>
        <source>PTP Clock ID:</source>
        <translation>PTP クロック ID:</translation>
    </message>
    <message>
        <source>PTP ParentClock ID:</source>
        <translation>PTP 親クロック ID:</translation>
    </message>
    <message>
        <source>PTP Grandmaster Clock ID:</source>
        <translation>PTP グランドマスター ID:</translation>
    </message>
    <message>
        <source>PTP Clock Accuracy:</source>
        <translation>PTP クロック精度:</translation>
    </message>
    <message>
        <source>PTP Offset from master: </source>
        <translation>PTP マスターオフセット: </translation>
    </message>
    <message>
        <source>PTP Data Set Latch</source>
        <translation>PTP データをラッチ</translation>
    </message>
    <message>
        <source>Timestamp Latch</source>
        <translation>タイムスタンプをラッチ</translation>
    </message>
    <message>
        <source>Timestamp Latch Value:</source>
        <translation>ラッチした時刻:</translation>
    </message>
    <message>
        <source>Configure Software Signal:</source>
        <translation>ソフトウェア信号の設定:</translation>
    </message>
    <message>
        <source>Software Signal Control features are not available in the camera.</source>
        <translation>このカメラではソフトウェア信号制御機能を使用できません。</translation>
    </message>
    <message>
        <source>Signal Selector:</source>
        <translation>信号セレクター:</translation>
    </message>
    <message>
        <source>Execute Signal Pulse</source>
        <translation>信号パルス実行</translation>
    </message>
    <message>
        <source>Configure Counter and Timer:</source>
        <translation>カウンターとタイマーの設定:</translation>
    </message>
    <message>
        <source>Counter and Timer features are not available in the camera.</source>
        <translation>このカメラではカウンター機能とタイマー機能を使用できません。</translation>
    </message>
    <message>
        <source>Counter</source>
        <translation>カウンター</translation>
    </message>
    <message>
        <source>Event Source:</source>
        <translation>イベントソース:</translation>
    </message>
    <message>
        <source>Duration:</source>
        <translation>期間:</translation>
    </message>
    <message>
        <source>Value:</source>
        <translation>値:</translation>
    </message>
    <message>
        <source>Optional</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Trigger Source:</source>
        <translation>トリガーソース:</translation>
    </message>
    <message>
        <source>T. Activation:</source>
        <translation>T. アクティベーション:</translation>
    </message>
    <message>
        <source>Reset Source:</source>
        <translation>リセットソース:</translation>
    </message>
    <message>
        <source>R. Activation:</source>
        <translation>R. アクティベーション:</translation>
    </message>
    <message>
        <source>Counter Status:</source>
        <translation>カウンター状態:</translation>
    </message>
    <message>
        <source>Counter Value at Reset:</source>
        <translation>リセット時のカウンター値:</translation>
    </message>
    <message>
        <source>Execute Reset</source>
        <translation>リセット実行</translation>
    </message>
    <message>
        <source>Timer</source>
        <translation>タイマー</translation>
    </message>
    <message>
        <source>Duration (µs):</source>
        <translation>時間 (µs):</translation>
    </message>
    <message>
        <source>Timer Status:</source>
        <translation>タイマー状態:</translation>
    </message>
    <message>
        <source>PWM:</source>
        <translation>PWM:</translation>
    </message>
    <message>
        <source>Frequency (Hz):</source>
        <translation>周波数 (Hz):</translation>
    </message>
    <message>
        <source>Duty Cycle (%):</source>
        <translation>デューティ比 (%):</translation>
    </message>
    <message>
        <source>Trigger Features Status:</source>
        <translation>トリガー機能の状態:</translation>
    </message>
</context>
<context>
    <name>AdvTriggerWidget</name>
    <message>
        <source>Form</source>
        <translation>フォーム</translation>
    </message>
    <message>
        <source>Full Trigger configuration only if camera is not acquiring!</source>
        <translation>すべてのトリガー設定は、画像取得の停止中のみ可能です！</translation>
    </message>
    <message>
        <source>Select Preset:</source>
        <translation>プリセット:</translation>
    </message>
    <message>
        <source>Tooltips on:</source>
        <translation>ツールチップ表示:</translation>
    </message>
    <message>
        <source>Configure Trigger:</source>
        <translation>トリガーの設定:</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>ソース:</translation>
    </message>
    <message>
        <source>Activation:</source>
        <translation>アクティベーション:</translation>
    </message>
    <message>
        <source>Selector:</source>
        <translation>セレクター:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <translation>モード:</translation>
    </message>
    <message>
        <source>Delay (µs):</source>
        <translation>遅延 (µs):</translation>
    </message>
    <message>
        <source>Execute SW Trigger</source>
        <translation>SW トリガー実行</translation>
    </message>
    <message>
        <source>Configure Advanced Trigger Features:</source>
        <translation>高度なトリガー機能の設定:</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;Acquisition Mode, Action Command,&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;Counters and Timers:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p align=&quot;right&quot;&gt;画像取得モード、アクションコマンド、&lt;/p&gt;&lt;p align=&quot;right&quot;&gt;カウンターとタイマー:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Open dialog</source>
        <translation>ダイアログを開く</translation>
    </message>
    <message>
        <source>Configure inputs and outputs:</source>
        <translation>入出力の設定:</translation>
    </message>
    <message>
        <source>I/O Mode</source>
        <translation>I/O モード</translation>
    </message>
    <message>
        <source>LineMode</source>
        <translation>LineMode</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>反転</translation>
    </message>
    <message>
        <source>LineInverter</source>
        <translation>LineInverter</translation>
    </message>
    <message>
        <source>I/O Line Source</source>
        <translation>I/O ラインソース</translation>
    </message>
    <message>
        <source>LineSource</source>
        <translation>LineSource</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>LineStatus</source>
        <translation>LineStatus</translation>
    </message>
    <message>
        <source>Show Trigger Features Status:</source>
        <translation>トリガー機能の状態を表示:</translation>
    </message>
    <message>
        <source>Trigger IO</source>
        <translation>トリガー I/O</translation>
    </message>
    <message>
        <source>Advanced Trigger IO</source>
        <translation>高度なトリガー I/O</translation>
    </message>
</context>
<context>
    <name>BaseTabPluginWidget</name>
    <message>
        <source>Vendor not supported for plugins, widget not created.</source>
        <translation>プラグインが対応していないメーカーのため、ウィジェットは作成されませんでした。</translation>
    </message>
</context>
<context>
    <name>SettingsTreeModel</name>
    <message>
        <source>Trigger features status</source>
        <translation>トリガー機能の状態</translation>
    </message>
</context>
<context>
    <name>TabExtensionPlugin</name>
    <message>
        <source>Please use the Advanced Trigger Dialog.</source>
        <translation>「高度なトリガー I/O」ダイアログを使用してください。</translation>
    </message>
</context>
</TS>
