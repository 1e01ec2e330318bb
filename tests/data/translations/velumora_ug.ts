<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ug" sourcelanguage="en">
<context>
    <name>Velumora</name>
    <message>
        <source>Today</source>
        <translation>بۈگۈن</translation>
    </message>
</context>
</TS>
