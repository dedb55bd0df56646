<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>mutlicamera</name>
    <message>
        <source>Lock Camera</source>
        <translation>Lock all</translation>
    </message>
</context>
</TS>
