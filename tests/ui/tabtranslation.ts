<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AdvTriggerWidget</name>
    <message>
        <source>Source:</source>
        <translation>Quelle:</translation>
    </message>
    <message>
        <source>Trigger IO</source>
        <translation>Trigger-EA</translation>
    </message>
</context>
</TS>
