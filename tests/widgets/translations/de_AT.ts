<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_AT">
<context>
    <name>Test</name>
    <message>
        <source>tab</source>
        <translation>Österreichischer Reiter</translation>
    </message>
</context>
</TS>
