<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>PellLib</name>
    <message>
        <source>Version 3.5, build %ls</source>
        <comment>1</comment>
        <translation>Version 3.5, Build %ls</translation>
    </message>
    <message>
        <source>N</source>
        <comment>3169</comment>
        <translation>N</translation>
    </message>
    <message>
        <source>S</source>
        <comment>3170</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>E</source>
        <comment>3171</comment>
        <translation>O</translation>
    </message>
    <message>
        <source>W</source>
        <comment>3172</comment>
        <translation>W</translation>
    </message>
    <message>
        <source>You are connecting to the unpowered receiver. Please use the Setup dialog (Device -&gt; Halvard Tools, Receiver tab) to turn power on manually, or allow Dorrit to change power state of the receiver.</source>
        <comment>3214</comment>
        <translation>Sie verbinden sich mit dem ausgeschalteten Empfänger. Bitte schalten Sie ihn im Setup-Dialog (Gerät -&gt; Halvard-Werkzeuge, Registerkarte Empfänger) von Hand ein oder erlauben Sie Dorrit, den Energiezustand des Empfängers zu ändern.</translation>
    </message>
    <message>
        <source>m</source>
        <comment>3220</comment>
        <translation>m</translation>
    </message>
    <message>
        <source>You are connecting to the unpowered modem. Please use the Setup dialog (Device -&gt; Halvard Tools, Modem tab) to turn power on manually, or allow Dorrit to change power state of the modem.</source>
        <comment>3247</comment>
        <translation>Sie verbinden sich mit dem ausgeschalteten Modem. Bitte schalten Sie es im Setup-Dialog (Gerät -&gt; Halvard-Werkzeuge, Registerkarte Modem) von Hand ein oder erlauben Sie Dorrit, den Energiezustand des Modems zu ändern.</translation>
    </message>
    <message>
        <source>Bluetooth disconnected</source>
        <comment>3365</comment>
        <translation>Bluetooth getrennt</translation>
    </message>
    <message>
        <source>Wrong name</source>
        <comment>3370</comment>
        <translation>Ungültiger Name</translation>
    </message>
    <message>
        <source>Fennickware</source>
        <comment>3439</comment>
        <translation>Fennickware</translation>
    </message>
    <message>
        <source>You are connecting to the unpowered receiver. Please use the Setup dialog (Device -&gt; Backpack Tools, Receiver tab) to turn power on manually, or allow Dorrit to change power state of the receiver.</source>
        <comment>3464</comment>
        <translation>Sie verbinden sich mit dem ausgeschalteten Empfänger. Bitte schalten Sie ihn im Setup-Dialog (Gerät -&gt; Rucksack-Werkzeuge, Registerkarte Empfänger) von Hand ein oder erlauben Sie Dorrit, den Energiezustand des Empfängers zu ändern.</translation>
    </message>
    <message>
        <source>Dorrit</source>
        <comment>57344</comment>
        <translation>Dorrit</translation>
    </message>
    <message>
        <source>%1 failed: %2 (error %3).</source>
        <comment>61000</comment>
        <translation>%1 ist fehlgeschlagen: %2 (Fehler %3).</translation>
    </message>
    <message>
        <source>Source: %1, line %2</source>
        <comment>61001</comment>
        <translation>Quelle: %1, Zeile %2</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <comment>61002</comment>
        <translation>Quelle: %1</translation>
    </message>
    <message>
        <source>The command &quot;%1&quot; failed.</source>
        <comment>61003</comment>
        <translation>Der Befehl „%1“ ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>%1 replied: %2</source>
        <comment>61004</comment>
        <translation>%1 antwortete: %2</translation>
    </message>
    <message>
        <source>Unknown system error.</source>
        <comment>61005</comment>
        <translation>Unbekannter Systemfehler.</translation>
    </message>
    <message>
        <source>The request is not supported.</source>
        <comment>61010</comment>
        <translation>Die Anforderung wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>The device is not present.</source>
        <comment>61011</comment>
        <translation>Das Gerät ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>The parameter is incorrect.</source>
        <comment>61012</comment>
        <translation>Der Parameter ist falsch.</translation>
    </message>
    <message>
        <source>Element not found.</source>
        <comment>61013</comment>
        <translation>Element nicht gefunden.</translation>
    </message>
    <message>
        <source>The operation was cancelled by the user.</source>
        <comment>61014</comment>
        <translation>Der Vorgang wurde vom Benutzer abgebrochen.</translation>
    </message>
    <message>
        <source>An internal error occurred.</source>
        <comment>61015</comment>
        <translation>Ein interner Fehler ist aufgetreten.</translation>
    </message>
    <message>
        <source>The operation timed out.</source>
        <comment>61016</comment>
        <translation>Zeitüberschreitung beim Vorgang.</translation>
    </message>
    <message>
        <source>Switching the power of the %1</source>
        <comment>61020</comment>
        <translation>Das Schalten der Stromversorgung des %1</translation>
    </message>
    <message>
        <source>internal receiver</source>
        <comment>61021</comment>
        <translation>internen Empfängers</translation>
    </message>
    <message>
        <source>internal modem</source>
        <comment>61022</comment>
        <translation>internen Modems</translation>
    </message>
    <message>
        <source>OK</source>
        <comment>61150</comment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <comment>61151</comment>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <comment>61152</comment>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>&lt; &amp;Back</source>
        <comment>61153</comment>
        <translation>&lt; &amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Next &gt;</source>
        <comment>61154</comment>
        <translation>&amp;Weiter &gt;</translation>
    </message>
    <message>
        <source>&amp;Finish</source>
        <comment>61155</comment>
        <translation>&amp;Fertig stellen</translation>
    </message>
</context>
</TS>
