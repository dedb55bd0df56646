<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>mutlicamera</name>
    <message>
        <source>Lock Camera</source>
        <translation>ロック</translation>
    </message>
</context>
</TS>
