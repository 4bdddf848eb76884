<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="eo" sourcelanguage="en">
<context>
    <name>QSP::AppRootItem</name>
    <message>
        <source>General</source>
        <translation>Ĝenerala</translation>
    </message>
</context>
</TS>
