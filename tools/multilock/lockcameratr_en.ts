<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<!-- The context is spelled as the application asks for it. -->
<context>
    <name>mutlicamera</name>
    <message>
        <source>Lock Camera</source>
        <translation>Lock Camera</translation>
    </message>
</context>
</TS>
