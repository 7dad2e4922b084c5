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
        <source>The receiver is still busy with another command.</source>
        <comment>61023</comment>
        <translation>Der Empfänger ist noch mit einem anderen Befehl beschäftigt.</translation>
    </message>
    <message>
        <source>The receiver can only be used from the thread of its window.</source>
        <comment>61024</comment>
        <translation>Der Empfänger kann nur aus dem Thread seines Fensters verwendet werden.</translation>
    </message>
    <message>
        <source>Sending text with a control character to %1</source>
        <comment>61100</comment>
        <translation>Senden eines Textes mit Steuerzeichen an %1</translation>
    </message>
    <message>
        <source>Building the receiver command for %1</source>
        <comment>61101</comment>
        <translation>Erstellen des Empfängerbefehls für %1</translation>
    </message>
    <message>
        <source>Restoring the receiver settings under %1</source>
        <comment>61102</comment>
        <translation>Wiederherstellen der Empfängereinstellungen unter %1</translation>
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
    <message>
        <source>PRN</source>
        <comment>61200</comment>
        <translation>PRN</translation>
    </message>
    <message>
        <source>SN</source>
        <comment>61201</comment>
        <translation>SN</translation>
    </message>
    <message>
        <source>EL</source>
        <comment>61202</comment>
        <translation>EL</translation>
    </message>
    <message>
        <source>AZ</source>
        <comment>61203</comment>
        <translation>AZ</translation>
    </message>
    <message>
        <source>C/A</source>
        <comment>61204</comment>
        <translation>C/A</translation>
    </message>
    <message>
        <source>L2C</source>
        <comment>61205</comment>
        <translation>L2C</translation>
    </message>
    <message>
        <source>L1P</source>
        <comment>61206</comment>
        <translation>L1P</translation>
    </message>
    <message>
        <source>L2P</source>
        <comment>61207</comment>
        <translation>L2P</translation>
    </message>
    <message>
        <source>L5</source>
        <comment>61208</comment>
        <translation>L5</translation>
    </message>
    <message>
        <source>L2CA</source>
        <comment>61209</comment>
        <translation>L2CA</translation>
    </message>
    <message>
        <source>L3</source>
        <comment>61210</comment>
        <translation>L3</translation>
    </message>
    <message>
        <source>E1</source>
        <comment>61211</comment>
        <translation>E1</translation>
    </message>
    <message>
        <source>E5a</source>
        <comment>61212</comment>
        <translation>E5a</translation>
    </message>
    <message>
        <source>E5b</source>
        <comment>61213</comment>
        <translation>E5b</translation>
    </message>
    <message>
        <source>E5ab</source>
        <comment>61214</comment>
        <translation>E5ab</translation>
    </message>
    <message>
        <source>E6</source>
        <comment>61215</comment>
        <translation>E6</translation>
    </message>
    <message>
        <source>B1</source>
        <comment>61216</comment>
        <translation>B1</translation>
    </message>
    <message>
        <source>B1C</source>
        <comment>61217</comment>
        <translation>B1C</translation>
    </message>
    <message>
        <source>B2b</source>
        <comment>61218</comment>
        <translation>B2b</translation>
    </message>
    <message>
        <source>B2a</source>
        <comment>61219</comment>
        <translation>B2a</translation>
    </message>
    <message>
        <source>B3</source>
        <comment>61220</comment>
        <translation>B3</translation>
    </message>
    <message>
        <source>L1C</source>
        <comment>61221</comment>
        <translation>L1C</translation>
    </message>
    <message>
        <source>LEX</source>
        <comment>61222</comment>
        <translation>LEX</translation>
    </message>
    <message>
        <source>L5A</source>
        <comment>61223</comment>
        <translation>L5A</translation>
    </message>
    <message>
        <source>TC</source>
        <comment>61224</comment>
        <translation>VD</translation>
    </message>
    <message>
        <source>SS</source>
        <comment>61225</comment>
        <translation>St</translation>
    </message>
    <message>
        <source>FCN</source>
        <comment>61226</comment>
        <translation>FKN</translation>
    </message>
    <message>
        <source>Unused</source>
        <comment>61230</comment>
        <translation>Unbenutzt</translation>
    </message>
    <message>
        <source>GPS</source>
        <comment>61231</comment>
        <translation>GPS</translation>
    </message>
    <message>
        <source>GLONASS</source>
        <comment>61232</comment>
        <translation>GLONASS</translation>
    </message>
    <message>
        <source>Galileo</source>
        <comment>61233</comment>
        <translation>Galileo</translation>
    </message>
    <message>
        <source>BeiDou</source>
        <comment>61234</comment>
        <translation>BeiDou</translation>
    </message>
    <message>
        <source>SBAS</source>
        <comment>61235</comment>
        <translation>SBAS</translation>
    </message>
    <message>
        <source>SAIF</source>
        <comment>61236</comment>
        <translation>SAIF</translation>
    </message>
    <message>
        <source>QZSS</source>
        <comment>61237</comment>
        <translation>QZSS</translation>
    </message>
    <message>
        <source>IRNSS</source>
        <comment>61238</comment>
        <translation>IRNSS</translation>
    </message>
    <message>
        <source>Reserved</source>
        <comment>61239</comment>
        <translation>Reserviert</translation>
    </message>
    <message>
        <source>GLO</source>
        <comment>61240</comment>
        <translation>GLO</translation>
    </message>
    <message>
        <source>GAL</source>
        <comment>61241</comment>
        <translation>GAL</translation>
    </message>
    <message>
        <source>BDS</source>
        <comment>61242</comment>
        <translation>BDS</translation>
    </message>
    <message>
        <source>Receiver Status</source>
        <comment>61300</comment>
        <translation>Empfängerstatus</translation>
    </message>
    <message>
        <source>Sky Plot</source>
        <comment>61301</comment>
        <translation>Himmelsansicht</translation>
    </message>
    <message>
        <source>Satellites</source>
        <comment>61302</comment>
        <translation>Satelliten</translation>
    </message>
    <message>
        <source>Time</source>
        <comment>61303</comment>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Now</source>
        <comment>61304</comment>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Tracks</source>
        <comment>61305</comment>
        <translation>Bahnen</translation>
    </message>
    <message>
        <source>Used</source>
        <comment>61306</comment>
        <translation>Verwendet</translation>
    </message>
    <message>
        <source>Not used</source>
        <comment>61307</comment>
        <translation>Nicht verwendet</translation>
    </message>
    <message>
        <source>This SV is experiencing ionospheric scintillations</source>
        <comment>61308</comment>
        <translation>Dieser Satellit ist ionosphärischer Szintillation ausgesetzt</translation>
    </message>
    <message>
        <source>All</source>
        <comment>61309</comment>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Elevation: %1°</source>
        <comment>61310</comment>
        <translation>Elevation: %1°</translation>
    </message>
    <message>
        <source>Azimuth: %1°</source>
        <comment>61311</comment>
        <translation>Azimut: %1°</translation>
    </message>
    <message>
        <source>Status: %1</source>
        <comment>61312</comment>
        <translation>Status: %1</translation>
    </message>
    <message>
        <source>Frequency channel: %1</source>
        <comment>61313</comment>
        <translation>Frequenzkanal: %1</translation>
    </message>
    <message>
        <source>Shown moment, hours from now</source>
        <comment>61314</comment>
        <translation>Gezeigter Zeitpunkt, Stunden ab jetzt</translation>
    </message>
    <message>
        <source>No position yet: the prediction needs the receiver&apos;s position.</source>
        <comment>61315</comment>
        <translation>Noch keine Position: Die Vorhersage braucht die Position des Empfängers.</translation>
    </message>
    <message>
        <source>No almanacs: predictions and tracks need the receiver&apos;s almanacs.</source>
        <comment>61316</comment>
        <translation>Keine Almanache: Vorhersage und Bahnen brauchen die Almanache des Empfängers.</translation>
    </message>
    <message>
        <source>System:</source>
        <comment>61317</comment>
        <translation>System:</translation>
    </message>
    <message>
        <source>Invalid file format</source>
        <comment>61400</comment>
        <translation>Ungültiges Dateiformat</translation>
    </message>
    <message>
        <source>This variable does not apply to the receiver.</source>
        <comment>61401</comment>
        <translation>Diese Variable gilt nicht für den Empfänger.</translation>
    </message>
    <message>
        <source>Cannot parse the receiver&apos;s reply.</source>
        <comment>61402</comment>
        <translation>Die Antwort des Empfängers kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Cannot compose a command line for the receiver.</source>
        <comment>61403</comment>
        <translation>Für den Empfänger lässt sich keine Befehlszeile bilden.</translation>
    </message>
    <message>
        <source>%u of %u messages have been restored.</source>
        <comment>61404</comment>
        <translation>%u von %u Meldungen wurden wiederhergestellt.</translation>
    </message>
    <message>
        <source>The specified file cannot be parsed.</source>
        <comment>61405</comment>
        <translation>Die angegebene Datei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file has been saved.</source>
        <comment>61406</comment>
        <translation>Die Datei wurde gespeichert.</translation>
    </message>
    <message>
        <source>Successfully Imported</source>
        <comment>61407</comment>
        <translation>Erfolgreich importiert</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2</source>
        <comment>61408</comment>
        <translation>Die Datei %1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Export Receiver Settings</source>
        <comment>61410</comment>
        <translation>Empfängereinstellungen exportieren</translation>
    </message>
    <message>
        <source>Import Receiver Settings</source>
        <comment>61411</comment>
        <translation>Empfängereinstellungen importieren</translation>
    </message>
    <message>
        <source>Select Parameters To Export</source>
        <comment>61412</comment>
        <translation>Zu exportierende Parameter wählen</translation>
    </message>
    <message>
        <source>Select File To Export Parameters</source>
        <comment>61413</comment>
        <translation>Datei für den Export wählen</translation>
    </message>
    <message>
        <source>Select File To Import Parameters</source>
        <comment>61414</comment>
        <translation>Datei für den Import wählen</translation>
    </message>
    <message>
        <source>Select Parameters To Import</source>
        <comment>61415</comment>
        <translation>Zu importierende Parameter wählen</translation>
    </message>
    <message>
        <source>Progress</source>
        <comment>61416</comment>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Check the settings to save. Values are read from the receiver.</source>
        <comment>61417</comment>
        <translation>Wählen Sie die zu sichernden Einstellungen. Die Werte werden aus dem Empfänger gelesen.</translation>
    </message>
    <message>
        <source>Choose the file the settings are saved to.</source>
        <comment>61418</comment>
        <translation>Wählen Sie die Datei, in der die Einstellungen gesichert werden.</translation>
    </message>
    <message>
        <source>Choose a settings file saved from a receiver.</source>
        <comment>61419</comment>
        <translation>Wählen Sie eine aus einem Empfänger gesicherte Einstellungsdatei.</translation>
    </message>
    <message>
        <source>Check the settings to load into the receiver.</source>
        <comment>61420</comment>
        <translation>Wählen Sie die Einstellungen, die in den Empfänger geladen werden.</translation>
    </message>
    <message>
        <source>Each setting is written to the receiver in turn.</source>
        <comment>61421</comment>
        <translation>Jede Einstellung wird nacheinander in den Empfänger geschrieben.</translation>
    </message>
    <message>
        <source>Show values</source>
        <comment>61422</comment>
        <translation>Werte anzeigen</translation>
    </message>
    <message>
        <source>Details…</source>
        <comment>61423</comment>
        <translation>Details…</translation>
    </message>
    <message>
        <source>File:</source>
        <comment>61424</comment>
        <translation>Datei:</translation>
    </message>
    <message>
        <source>JSON Files (*.json);;All Files (*)</source>
        <comment>61425</comment>
        <translation>JSON-Dateien (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Reading %1 of %2…</source>
        <comment>61426</comment>
        <translation>Lese %1 von %2…</translation>
    </message>
    <message>
        <source>%1 values read.</source>
        <comment>61427</comment>
        <translation>%1 Werte gelesen.</translation>
    </message>
    <message>
        <source>Writing %1 of %2…</source>
        <comment>61428</comment>
        <translation>Schreibe %1 von %2…</translation>
    </message>
    <message>
        <source>%1 imported, %2 failed.</source>
        <comment>61429</comment>
        <translation>%1 importiert, %2 fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Parameter</source>
        <comment>61430</comment>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Value</source>
        <comment>61431</comment>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Result</source>
        <comment>61432</comment>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Not in the file</source>
        <comment>61433</comment>
        <translation>Nicht in der Datei</translation>
    </message>
    <message>
        <source>Putting back the values written so far…</source>
        <comment>61434</comment>
        <translation>Die bisher geschriebenen Werte werden zurückgesetzt…</translation>
    </message>
    <message>
        <source>These settings could not be put back: %1</source>
        <comment>61435</comment>
        <translation>Diese Einstellungen konnten nicht zurückgesetzt werden: %1</translation>
    </message>
    <message>
        <source>Friendly Name = </source>
        <comment>61436</comment>
        <translation>Anzeigename = </translation>
    </message>
    <message>
        <source>Name = </source>
        <comment>61437</comment>
        <translation>Name = </translation>
    </message>
    <message>
        <source>Path = </source>
        <comment>61438</comment>
        <translation>Pfad = </translation>
    </message>
    <message>
        <source>Type = </source>
        <comment>61439</comment>
        <translation>Typ = </translation>
    </message>
    <message>
        <source>, True = </source>
        <comment>61440</comment>
        <translation>, Wahr = </translation>
    </message>
    <message>
        <source>, False = </source>
        <comment>61441</comment>
        <translation>, Falsch = </translation>
    </message>
    <message>
        <source>VOXA Parameter = </source>
        <comment>61442</comment>
        <translation>VOXA-Parameter = </translation>
    </message>
    <message>
        <source>%1 settings will be saved.</source>
        <comment>61443</comment>
        <translation>%1 Einstellungen werden gesichert.</translation>
    </message>
    <message>
        <source>Timing Signals</source>
        <comment>61500</comment>
        <translation>Zeitsignale</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>61501</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>PPS</source>
        <comment>61502</comment>
        <translation>PPS</translation>
    </message>
    <message>
        <source>Event</source>
        <comment>61503</comment>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>External Frequency</source>
        <comment>61504</comment>
        <translation>Externe Frequenz</translation>
    </message>
    <message>
        <source>Enable</source>
        <comment>61505</comment>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Period, ms:</source>
        <comment>61506</comment>
        <translation>Periode, ms:</translation>
    </message>
    <message>
        <source>Offset, ns:</source>
        <comment>61507</comment>
        <translation>Versatz, ns:</translation>
    </message>
    <message>
        <source>Offset, ms:</source>
        <comment>61508</comment>
        <translation>Versatz, ms:</translation>
    </message>
    <message>
        <source>Generate Marked Pulses</source>
        <comment>61509</comment>
        <translation>Markierte Impulse erzeugen</translation>
    </message>
    <message>
        <source>Edge:</source>
        <comment>61510</comment>
        <translation>Flanke:</translation>
    </message>
    <message>
        <source>Ref. Time:</source>
        <comment>61511</comment>
        <translation>Bezugszeit:</translation>
    </message>
    <message>
        <source>Tied with Ref. Time</source>
        <comment>61512</comment>
        <translation>An Bezugszeit gebunden</translation>
    </message>
    <message>
        <source>Clock Synchronization:</source>
        <comment>61513</comment>
        <translation>Uhrensynchronisation:</translation>
    </message>
    <message>
        <source>Status:</source>
        <comment>61514</comment>
        <translation>Status:</translation>
    </message>
    <message>
        <source>External Frequency Source Parameters</source>
        <comment>61515</comment>
        <translation>Parameter der externen Frequenzquelle</translation>
    </message>
    <message>
        <source>Frequency Source</source>
        <comment>61516</comment>
        <translation>Frequenzquelle</translation>
    </message>
    <message>
        <source>Source:</source>
        <comment>61517</comment>
        <translation>Quelle:</translation>
    </message>
    <message>
        <source>Frequency, MHz:</source>
        <comment>61518</comment>
        <translation>Frequenz, MHz:</translation>
    </message>
    <message>
        <source>Source Status:</source>
        <comment>61519</comment>
        <translation>Quellenstatus:</translation>
    </message>
    <message>
        <source>Signal Amplitude:</source>
        <comment>61520</comment>
        <translation>Signalamplitude:</translation>
    </message>
    <message>
        <source>Oscillator Offset Reduction:</source>
        <comment>61521</comment>
        <translation>Oszillator-Offsetreduzierung:</translation>
    </message>
    <message>
        <source>Pulse</source>
        <comment>61522</comment>
        <translation>Impuls</translation>
    </message>
    <message>
        <source>Time Reference</source>
        <comment>61523</comment>
        <translation>Zeitbezug</translation>
    </message>
    <message>
        <source>Tracking and Positioning</source>
        <comment>61530</comment>
        <translation>Verfolgung und Positionierung</translation>
    </message>
    <message>
        <source>General</source>
        <comment>61531</comment>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Obs</source>
        <comment>61532</comment>
        <translation>Beob.</translation>
    </message>
    <message>
        <source>RTK Masks</source>
        <comment>61533</comment>
        <translation>RTK-Masken</translation>
    </message>
    <message>
        <source>Base</source>
        <comment>61534</comment>
        <translation>Basis</translation>
    </message>
    <message>
        <source>RTK</source>
        <comment>61535</comment>
        <translation>RTK</translation>
    </message>
    <message>
        <source>Heading</source>
        <comment>61536</comment>
        <translation>Kurs</translation>
    </message>
    <message>
        <source>Kestrel</source>
        <comment>61537</comment>
        <translation>Kestrel</translation>
    </message>
    <message>
        <source>Antenna</source>
        <comment>61538</comment>
        <translation>Antenne</translation>
    </message>
    <message>
        <source>Adv</source>
        <comment>61539</comment>
        <translation>Erw.</translation>
    </message>
    <message>
        <source>Adv. RTK</source>
        <comment>61540</comment>
        <translation>Erw. RTK</translation>
    </message>
    <message>
        <source>Adv. Kestrel</source>
        <comment>61541</comment>
        <translation>Erw. Kestrel</translation>
    </message>
    <message>
        <source>Anti-Jamming Settings</source>
        <comment>61542</comment>
        <translation>Störschutz-Einstellungen</translation>
    </message>
    <message>
        <source>Advanced</source>
        <comment>61543</comment>
        <translation>Erweitert</translation>
    </message>
    <message>
        <source>Solution Modes</source>
        <comment>61544</comment>
        <translation>Lösungsarten</translation>
    </message>
    <message>
        <source>Positioning Mode:</source>
        <comment>61545</comment>
        <translation>Positionierungsart:</translation>
    </message>
    <message>
        <source>Standalone Solution:</source>
        <comment>61546</comment>
        <translation>Autonome Lösung:</translation>
    </message>
    <message>
        <source>Code Differential Solution:</source>
        <comment>61547</comment>
        <translation>Code-Differenzlösung:</translation>
    </message>
    <message>
        <source>Ionosphere</source>
        <comment>61548</comment>
        <translation>Ionosphäre</translation>
    </message>
    <message>
        <source>Differential Ionosphere:</source>
        <comment>61549</comment>
        <translation>Differentielle Ionosphäre:</translation>
    </message>
    <message>
        <source>RTK Differential Ionosphere:</source>
        <comment>61550</comment>
        <translation>RTK-differentielle Ionosphäre:</translation>
    </message>
    <message>
        <source>PPP Mode:</source>
        <comment>61551</comment>
        <translation>PPP-Modus:</translation>
    </message>
    <message>
        <source>Satellites Tracking:</source>
        <comment>61552</comment>
        <translation>Satellitenverfolgung:</translation>
    </message>
    <message>
        <source>Position Computation:</source>
        <comment>61553</comment>
        <translation>Positionsberechnung:</translation>
    </message>
    <message>
        <source>Elevation Mask, deg</source>
        <comment>61554</comment>
        <translation>Elevationsmaske, Grad</translation>
    </message>
    <message>
        <source>PDOP mask for position computation</source>
        <comment>61555</comment>
        <translation>PDOP-Maske für die Positionsberechnung</translation>
    </message>
    <message>
        <source>RTK Elevation Mask, deg</source>
        <comment>61556</comment>
        <translation>RTK-Elevationsmaske, Grad</translation>
    </message>
    <message>
        <source>RTK PDOP Mask</source>
        <comment>61557</comment>
        <translation>RTK-PDOP-Maske</translation>
    </message>
    <message>
        <source>Antenna Type</source>
        <comment>61558</comment>
        <translation>Antennentyp</translation>
    </message>
    <message>
        <source>Detect Ionospheric Scintillations</source>
        <comment>61559</comment>
        <translation>Ionosphärische Szintillationen erkennen</translation>
    </message>
    <message>
        <source>RTK Engine Version:</source>
        <comment>61560</comment>
        <translation>Version des RTK-Rechenkerns:</translation>
    </message>
    <message>
        <source>RTK Mode</source>
        <comment>61561</comment>
        <translation>RTK-Modus</translation>
    </message>
    <message>
        <source>Extrapolation Time, s:</source>
        <comment>61562</comment>
        <translation>Extrapolationszeit, s:</translation>
    </message>
    <message>
        <source>Base Corrections Period, s:</source>
        <comment>61563</comment>
        <translation>Korrekturintervall der Basis, s:</translation>
    </message>
    <message>
        <source>Dynamics</source>
        <comment>61564</comment>
        <translation>Dynamik</translation>
    </message>
    <message>
        <source>Rover Acceleration, m/s²:</source>
        <comment>61565</comment>
        <translation>Beschleunigung des Rovers, m/s²:</translation>
    </message>
    <message>
        <source>Ambiguity Fixing Level</source>
        <comment>61566</comment>
        <translation>Stufe der Mehrdeutigkeitslösung</translation>
    </message>
    <message>
        <source>Ionospheric Residual, ppm:</source>
        <comment>61567</comment>
        <translation>Ionosphärischer Restfehler, ppm:</translation>
    </message>
    <message>
        <source>VRS Mode:</source>
        <comment>61568</comment>
        <translation>VRS-Modus:</translation>
    </message>
    <message>
        <source>IF Baseline, m:</source>
        <comment>61569</comment>
        <translation>IF-Basislinie, m:</translation>
    </message>
    <message>
        <source>Weighting Based On Residuals</source>
        <comment>61570</comment>
        <translation>Gewichtung nach Residuen</translation>
    </message>
    <message>
        <source>Maximum Residual Value, mm:</source>
        <comment>61571</comment>
        <translation>Größtes Residuum, mm:</translation>
    </message>
    <message>
        <source>Heading Mode:</source>
        <comment>61572</comment>
        <translation>Kursmodus:</translation>
    </message>
    <message>
        <source>Azimuth Filter:</source>
        <comment>61573</comment>
        <translation>Azimutfilter:</translation>
    </message>
    <message>
        <source>Azimuth Filter RMS, deg:</source>
        <comment>61574</comment>
        <translation>RMS des Azimutfilters, Grad:</translation>
    </message>
    <message>
        <source>Baseline</source>
        <comment>61575</comment>
        <translation>Basislinie</translation>
    </message>
    <message>
        <source>Distance:</source>
        <comment>61576</comment>
        <translation>Abstand:</translation>
    </message>
    <message>
        <source>Distance in Use, m:</source>
        <comment>61577</comment>
        <translation>Verwendeter Abstand, m:</translation>
    </message>
    <message>
        <source>Heading with Two Antennas</source>
        <comment>61578</comment>
        <translation>Kurs mit zwei Antennen</translation>
    </message>
    <message>
        <source>Antenna Baseline, m:</source>
        <comment>61579</comment>
        <translation>Antennenbasislinie, m:</translation>
    </message>
    <message>
        <source>Use Second Frequency</source>
        <comment>61580</comment>
        <translation>Zweite Frequenz verwenden</translation>
    </message>
    <message>
        <source>Initial Angles</source>
        <comment>61581</comment>
        <translation>Anfangswinkel</translation>
    </message>
    <message>
        <source>Shifts</source>
        <comment>61582</comment>
        <translation>Verschiebungen</translation>
    </message>
    <message>
        <source>Heading, deg:</source>
        <comment>61583</comment>
        <translation>Kurs, Grad:</translation>
    </message>
    <message>
        <source>Inclination, deg:</source>
        <comment>61584</comment>
        <translation>Neigung, Grad:</translation>
    </message>
    <message>
        <source>Save Line Biases</source>
        <comment>61585</comment>
        <translation>Leitungsverzögerungen speichern</translation>
    </message>
    <message>
        <source>Adjust Cable Difference</source>
        <comment>61586</comment>
        <translation>Kabelunterschied ausgleichen</translation>
    </message>
    <message>
        <source>Adaptive Smoothing</source>
        <comment>61587</comment>
        <translation>Adaptive Glättung</translation>
    </message>
    <message>
        <source>Heading Only</source>
        <comment>61588</comment>
        <translation>Nur Kurs</translation>
    </message>
    <message>
        <source>Antenna Input</source>
        <comment>61589</comment>
        <translation>Antenneneingang</translation>
    </message>
    <message>
        <source>Input:</source>
        <comment>61590</comment>
        <translation>Eingang:</translation>
    </message>
    <message>
        <source>Current Input:</source>
        <comment>61591</comment>
        <translation>Aktueller Eingang:</translation>
    </message>
    <message>
        <source>Ext. Antenna Status:</source>
        <comment>61592</comment>
        <translation>Status ext. Antenne:</translation>
    </message>
    <message>
        <source>HD Antenna Status:</source>
        <comment>61593</comment>
        <translation>Status HD-Antenne:</translation>
    </message>
    <message>
        <source>Activate Twin Antenna System</source>
        <comment>61594</comment>
        <translation>Zwillingsantennensystem aktivieren</translation>
    </message>
    <message>
        <source>Update Rates</source>
        <comment>61595</comment>
        <translation>Aktualisierungsraten</translation>
    </message>
    <message>
        <source>Raw measurement update rate, ms:</source>
        <comment>61596</comment>
        <translation>Aktualisierungsrate der Rohmessungen, ms:</translation>
    </message>
    <message>
        <source>Position update rate, ms:</source>
        <comment>61597</comment>
        <translation>Aktualisierungsrate der Position, ms:</translation>
    </message>
    <message>
        <source>Multipath</source>
        <comment>61598</comment>
        <translation>Mehrwege</translation>
    </message>
    <message>
        <source>C/A code multipath reduction</source>
        <comment>61599</comment>
        <translation>C/A-Code-Mehrwegereduktion</translation>
    </message>
    <message>
        <source>C/A carrier phase multipath reduction</source>
        <comment>61600</comment>
        <translation>C/A-Trägerphasen-Mehrwegereduktion</translation>
    </message>
    <message>
        <source>Options</source>
        <comment>61601</comment>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Cinderella</source>
        <comment>61602</comment>
        <translation>Cinderella</translation>
    </message>
    <message>
        <source>Quartz Lock Loop</source>
        <comment>61603</comment>
        <translation>Quarz-Regelschleife</translation>
    </message>
    <message>
        <source>Anti-jamming:</source>
        <comment>61604</comment>
        <translation>Störschutz:</translation>
    </message>
    <message>
        <source>Settings…</source>
        <comment>61605</comment>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>GPS</source>
        <comment>61606</comment>
        <translation>GPS</translation>
    </message>
    <message>
        <source>GLONASS</source>
        <comment>61607</comment>
        <translation>GLONASS</translation>
    </message>
    <message>
        <source>L1</source>
        <comment>61608</comment>
        <translation>L1</translation>
    </message>
    <message>
        <source>L2</source>
        <comment>61609</comment>
        <translation>L2</translation>
    </message>
    <message>
        <source>L5</source>
        <comment>61610</comment>
        <translation>L5</translation>
        <source>Single Base</source>
        <comment>61800</comment>
        <translation>Einzelbasis</translation>
    </message>
    <message>
        <source>Serial %1</source>
        <comment>61631</comment>
        <translation>Seriell %1</translation>
    </message>
    <message>
        <source>General</source>
        <comment>61632</comment>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>USB</source>
        <comment>61633</comment>
        <translation>USB</translation>
    </message>
    <message>
        <source>TCP</source>
        <comment>61634</comment>
        <translation>TCP</translation>
    </message>
    <message>
        <source>ICOMM</source>
        <comment>61635</comment>
        <translation>ICOMM</translation>
    </message>
    <message>
        <source>UDP</source>
        <comment>61636</comment>
        <translation>UDP</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <comment>61637</comment>
        <translation>Bluetooth</translation>
    </message>
    <message>
        <source>Ntrip</source>
        <comment>61638</comment>
        <translation>Ntrip</translation>
    </message>
    <message>
        <source>MVP</source>
        <comment>61639</comment>
        <translation>MVP</translation>
    </message>
    <message>
        <source>Modem</source>
        <comment>61640</comment>
        <translation>Modem</translation>
    </message>
    <message>
        <source>TCP Server</source>
        <comment>61641</comment>
        <translation>TCP-Server</translation>
    </message>
    <message>
        <source>UDP Port</source>
        <comment>61642</comment>
        <translation>UDP-Port</translation>
    </message>
    <message>
        <source>Modem %1</source>
        <comment>61643</comment>
        <translation>Modem %1</translation>
    </message>
    <message>
        <source>Drivers %1</source>
        <comment>61644</comment>
        <translation>Treiber %1</translation>
    </message>
    <message>
        <source>Serial</source>
        <comment>61645</comment>
        <translation>Seriell</translation>
    </message>
    <message>
        <source>Baud Rate:</source>
        <comment>61646</comment>
        <translation>Baudrate:</translation>
    </message>
    <message>
        <source>Byte Size:</source>
        <comment>61647</comment>
        <translation>Datenbits:</translation>
    </message>
    <message>
        <source>Stop Bits:</source>
        <comment>61648</comment>
        <translation>Stoppbits:</translation>
    </message>
    <message>
        <source>Parity:</source>
        <comment>61649</comment>
        <translation>Parität:</translation>
    </message>
    <message>
        <source>RTS/CTS</source>
        <comment>61650</comment>
        <translation>RTS/CTS</translation>
    </message>
    <message>
        <source>Input Mode:</source>
        <comment>61651</comment>
        <translation>Eingabemodus:</translation>
    </message>
    <message>
        <source>Output Mode:</source>
        <comment>61652</comment>
        <translation>Ausgabemodus:</translation>
    </message>
    <message>
        <source>Elev. Mask, deg:</source>
        <comment>61653</comment>
        <translation>Elevationsmaske, Grad:</translation>
    </message>
    <message>
        <source>Period, s:</source>
        <comment>61654</comment>
        <translation>Periode, s:</translation>
    </message>
    <message>
        <source>Messages</source>
        <comment>61655</comment>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Port</source>
        <comment>61656</comment>
        <translation>Port</translation>
    </message>
    <message>
        <source>Auth</source>
        <comment>61657</comment>
        <translation>Anmeldung</translation>
    </message>
    <message>
        <source>Input</source>
        <comment>61658</comment>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Output</source>
        <comment>61659</comment>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>61660</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>UDP Port:</source>
        <comment>61661</comment>
        <translation>UDP-Port:</translation>
    </message>
    <message>
        <source>The period of the message(s) doesn't correspond to the raw measurement or position update rate.</source>
        <comment>61662</comment>
        <translation>Die Periode der Meldung(en) passt nicht zur Aktualisierungsrate der Rohmessungen oder der Position.</translation>
    </message>
    <message>
        <source>Confirm deletion of the driver.</source>
        <comment>61663</comment>
        <translation>Löschen des Treibers bestätigen.</translation>
    </message>
    <message>
        <source>%1 (this controller)</source>
        <comment>61664</comment>
        <translation>%1 (dieser Controller)</translation>
    </message>
    <message>
        <source>%1 (no output)</source>
        <comment>61665</comment>
        <translation>%1 (keine Ausgabe)</translation>
    </message>
    <message>
        <source>This controller is connected through %1. The change may cut the connection. Apply it anyway?</source>
        <comment>61666</comment>
        <translation>Dieser Controller ist über %1 verbunden. Die Änderung kann die Verbindung trennen. Trotzdem übernehmen?</translation>
    </message>
    <message>
        <source>This controller is connected through this port.</source>
        <comment>61667</comment>
        <translation>Dieser Controller ist über diesen Port verbunden.</translation>
    </message>
    <message>
        <source>Password</source>
        <comment>61668</comment>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Open</source>
        <comment>61669</comment>
        <translation>Offen</translation>
    </message>
    <message>
        <source>Password required</source>
        <comment>61670</comment>
        <translation>Passwort erforderlich</translation>
    </message>
    <message>
        <source>Receiver Port:</source>
        <comment>61671</comment>
        <translation>Empfängerport:</translation>
    </message>
    <message>
        <source>Mode:</source>
        <comment>61672</comment>
        <translation>Modus:</translation>
    </message>
    <message>
        <source>Type:</source>
        <comment>61673</comment>
        <translation>Typ:</translation>
    </message>
    <message>
        <source>Hardware:</source>
        <comment>61674</comment>
        <translation>Hardware:</translation>
    </message>
    <message>
        <source>Profile:</source>
        <comment>61675</comment>
        <translation>Profil:</translation>
    </message>
    <message>
        <source>State:</source>
        <comment>61676</comment>
        <translation>Zustand:</translation>
    </message>
    <message>
        <source>Port open</source>
        <comment>61677</comment>
        <translation>Port geöffnet</translation>
    </message>
    <message>
        <source>Slot</source>
        <comment>61678</comment>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Driver</source>
        <comment>61679</comment>
        <translation>Treiber</translation>
    </message>
    <message>
        <source>State</source>
        <comment>61680</comment>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Delete</source>
        <comment>61681</comment>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Modem Port</source>
        <comment>61682</comment>
        <translation>Modemport</translation>
    </message>
    <message>
        <source>Connection</source>
        <comment>61683</comment>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Server Port</source>
        <comment>61684</comment>
        <translation>Serverport</translation>
    </message>
    <message>
        <source>Network</source>
        <comment>61801</comment>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>L1</source>
        <comment>61802</comment>
        <translation>L1</translation>
    </message>
    <message>
        <source>L1+L2</source>
        <comment>61803</comment>
        <translation>L1+L2</translation>
    </message>
    <message>
        <source>Select Mountpoint</source>
        <comment>61804</comment>
        <translation>Mountpoint auswählen</translation>
    </message>
    <message>
        <source>Filter:</source>
        <comment>61805</comment>
        <translation>Filter:</translation>
    </message>
    <message>
        <source>Mountpoint</source>
        <comment>61806</comment>
        <translation>Mountpoint</translation>
    </message>
    <message>
        <source>Identifier</source>
        <comment>61807</comment>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Format</source>
        <comment>61808</comment>
        <translation>Format</translation>
    </message>
    <message>
        <source>Carrier</source>
        <comment>61809</comment>
        <translation>Träger</translation>
    </message>
    <message>
        <source>Solution</source>
        <comment>61810</comment>
        <translation>Lösung</translation>
    </message>
    <message>
        <source>Systems</source>
        <comment>61811</comment>
        <translation>Systeme</translation>
    </message>
    <message>
        <source>Country</source>
        <comment>61812</comment>
        <translation>Land</translation>
    </message>
    <message>
        <source>Distance, km</source>
        <comment>61813</comment>
        <translation>Entfernung, km</translation>
    </message>
    <message>
        <source>%1 of %2 mountpoints</source>
        <comment>61814</comment>
        <translation>%1 von %2 Mountpoints</translation>
    </message>
    <message>
        <source>Lines of the table that could not be read are left out: %1.</source>
        <comment>61815</comment>
        <translation>Nicht lesbare Zeilen der Tabelle fehlen: %1.</translation>
    </message>
    <message>
        <source>The table ended early: some mountpoints may be missing.</source>
        <comment>61816</comment>
        <translation>Die Tabelle endete vorzeitig: Einige Mountpoints können fehlen.</translation>
    </message>
    <message>
        <source>The receiver has no mountpoints from its caster yet. Check the caster address and let the receiver connect once.</source>
        <comment>61817</comment>
        <translation>Der Empfänger hat noch keine Mountpoints von seinem Caster. Prüfen Sie die Caster-Adresse und lassen Sie den Empfänger einmal verbinden.</translation>
    </message>
    <message>
        <source>Show password</source>
        <comment>61818</comment>
        <translation>Passwort anzeigen</translation>
    </message>
    <message>
        <source>Hide password</source>
        <comment>61819</comment>
        <translation>Passwort verbergen</translation>
    </message>
    <message>
        <source>NTRIP</source>
        <comment>61820</comment>
        <translation>NTRIP</translation>
    </message>
    <message>
        <source>Client</source>
        <comment>61821</comment>
        <translation>Client</translation>
    </message>
    <message>
        <source>Function:</source>
        <comment>61822</comment>
        <translation>Funktion:</translation>
    </message>
    <message>
        <source>Data Port:</source>
        <comment>61823</comment>
        <translation>Datenport:</translation>
    </message>
    <message>
        <source>Caster</source>
        <comment>61824</comment>
        <translation>Caster</translation>
    </message>
    <message>
        <source>Address:</source>
        <comment>61825</comment>
        <translation>Adresse:</translation>
    </message>
    <message>
        <source>Port:</source>
        <comment>61826</comment>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Mountpoint:</source>
        <comment>61827</comment>
        <translation>Mountpoint:</translation>
    </message>
    <message>
        <source>Select…</source>
        <comment>61828</comment>
        <translation>Auswählen…</translation>
    </message>
    <message>
        <source>User:</source>
        <comment>61829</comment>
        <translation>Benutzer:</translation>
    </message>
    <message>
        <source>Password:</source>
        <comment>61830</comment>
        <translation>Passwort:</translation>
    </message>
    <message>
        <source>Input Mode:</source>
        <comment>61831</comment>
        <translation>Eingabemodus:</translation>
    </message>
    <message>
        <source>State</source>
        <comment>61832</comment>
        <translation>Status</translation>
    </message>
    <message>
        <source>Proxy Server</source>
        <comment>61833</comment>
        <translation>Proxyserver</translation>
    </message>
    <message>
        <source>Last Error:</source>
        <comment>61834</comment>
        <translation>Letzter Fehler:</translation>
    </message>
    <message>
        <source>%1 : %2</source>
        <comment>61835</comment>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>Not set</source>
        <comment>61836</comment>
        <translation>Nicht gesetzt</translation>
        <source>Receiver Ports</source>
        <comment>61630</comment>
        <translation>Empfängerschnittstellen</translation>
    </message>
    <message>
        <source>Advanced</source>
        <comment>61837</comment>
        <translation>Erweitert</translation>
    </message>
    <message>
        <source>Protocol:</source>
        <comment>61839</comment>
        <translation>Protokoll:</translation>
    </message>
    <message>
        <source>Position Report, s:</source>
        <comment>61840</comment>
        <translation>Positionsmeldung, s:</translation>
    </message>
    <message>
        <source>Initialization:</source>
        <comment>61841</comment>
        <translation>Initialisierung:</translation>
    </message>
    <message>
        <source>Off</source>
        <comment>61842</comment>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Server</source>
        <comment>61843</comment>
        <translation>Server</translation>
    </message>
    <message>
        <source>Server %1</source>
        <comment>61844</comment>
        <translation>Server %1</translation>
    </message>
    <message>
        <source>Send the receiver&apos;s data to the caster</source>
        <comment>61845</comment>
        <translation>Daten des Empfängers an den Caster senden</translation>
    </message>
    <message>
        <source>Description:</source>
        <comment>61846</comment>
        <translation>Beschreibung:</translation>
    </message>
    <message>
        <source>Reading the caster&apos;s table from the receiver…</source>
        <comment>61847</comment>
        <translation>Die Tabelle des Casters wird vom Empfänger gelesen…</translation>
    </message>
    <message>
        <source>Caster:</source>
        <comment>61848</comment>
        <translation>Caster:</translation>
    </message>
    <message>
        <source>Proxy Server:</source>
        <comment>61849</comment>
        <translation>Proxyserver:</translation>
    </message>
    <message>
        <source>Caster</source>
        <comment>61850</comment>
        <translation>Caster</translation>
    </message>
    <message>
        <source>Run the receiver&apos;s caster</source>
        <comment>61851</comment>
        <translation>Caster des Empfängers betreiben</translation>
    </message>
    <message>
        <source>Name:</source>
        <comment>61852</comment>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Country:</source>
        <comment>61853</comment>
        <translation>Land:</translation>
    </message>
    <message>
        <source>Authentication:</source>
        <comment>61854</comment>
        <translation>Authentifizierung:</translation>
    </message>
    <message>
        <source>Connections</source>
        <comment>61855</comment>
        <translation>Verbindungen</translation>
    </message>
    <message>
        <source>Port %1:</source>
        <comment>61856</comment>
        <translation>Port %1:</translation>
        <source>Network</source>
        <comment>61900</comment>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Users</source>
        <comment>61857</comment>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>User</source>
        <comment>61858</comment>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Access To:</source>
        <comment>61859</comment>
        <translation>Zugriff auf:</translation>
    </message>
    <message>
        <source>Valid From:</source>
        <comment>61860</comment>
        <translation>Gültig ab:</translation>
    </message>
    <message>
        <source>Valid Until:</source>
        <comment>61861</comment>
        <translation>Gültig bis:</translation>
    </message>
    <message>
        <source>The user name cannot be an empty string.</source>
        <comment>61862</comment>
        <translation>Der Benutzername darf nicht leer sein.</translation>
    </message>
    <message>
        <source>A user with this name already exists.</source>
        <comment>61863</comment>
        <translation>Ein Benutzer mit diesem Namen existiert bereits.</translation>
    </message>
    <message>
        <source>Id</source>
        <comment>61864</comment>
        <translation>Id</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>61865</comment>
        <translation>Name</translation>
    </message>
    <message>
        <source>Password</source>
        <comment>61866</comment>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Access To</source>
        <comment>61867</comment>
        <translation>Zugriff auf</translation>
    </message>
    <message>
        <source>Valid From</source>
        <comment>61868</comment>
        <translation>Gültig ab</translation>
    </message>
    <message>
        <source>Valid Until</source>
        <comment>61869</comment>
        <translation>Gültig bis</translation>
    </message>
    <message>
        <source>Add…</source>
        <comment>61870</comment>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Edit…</source>
        <comment>61871</comment>
        <translation>Bearbeiten…</translation>
    </message>
    <message>
        <source>Delete</source>
        <comment>61872</comment>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Invalid date/time: %1</source>
        <comment>61873</comment>
        <translation>Ungültiges Datum/Uhrzeit: %1</translation>
    </message>
    <message>
        <source>Invalid date/time: %04u/%02u/%02u %02u:%02u:%02u</source>
        <comment>61874</comment>
        <translation>Ungültiges Datum/Uhrzeit: %04u/%02u/%02u %02u:%02u:%02u</translation>
    </message>
    <message>
        <source>Confirm deletion.</source>
        <comment>61875</comment>
        <translation>Löschen bestätigen.</translation>
    </message>
    <message>
        <source>Users…</source>
        <comment>61876</comment>
        <translation>Benutzer…</translation>
    </message>
    <message>
        <source>Mountpoints…</source>
        <comment>61877</comment>
        <translation>Mountpoints…</translation>
    </message>
    <message>
        <source>Mountpoints of Port %1</source>
        <comment>61878</comment>
        <translation>Mountpoints von Port %1</translation>
    </message>
    <message>
        <source>Mountpoint</source>
        <comment>61879</comment>
        <translation>Mountpoint</translation>
    </message>
    <message>
        <source>Mountpoint Name</source>
        <comment>61880</comment>
        <translation>Mountpoint-Name</translation>
    </message>
    <message>
        <source>Message Set</source>
        <comment>61881</comment>
        <translation>Meldungssatz</translation>
    </message>
    <message>
        <source>Mountpoint Name:</source>
        <comment>61882</comment>
        <translation>Mountpoint-Name:</translation>
    </message>
    <message>
        <source>Message Set:</source>
        <comment>61883</comment>
        <translation>Meldungssatz:</translation>
    </message>
    <message>
        <source>Messages:</source>
        <comment>61884</comment>
        <translation>Meldungen:</translation>
    </message>
    <message>
        <source>The mountpoint name cannot be empty.</source>
        <comment>61885</comment>
        <translation>Der Mountpoint-Name darf nicht leer sein.</translation>
    </message>
    <message>
        <source>A mounpoint with this name already exists.</source>
        <comment>61886</comment>
        <translation>Ein Mountpoint mit diesem Namen existiert bereits.</translation>
    </message>
    <message>
        <source>The Ntrip Message Set Description has been updated to reflect the actually enabled message set.</source>
        <comment>61887</comment>
        <translation>Die Beschreibung des NTRIP-Meldungssatzes wurde an die tatsächlich aktivierten Meldungen angepasst.</translation>
    </message>
    <message>
        <source>All %1 mountpoints of this port are in use.</source>
        <comment>61888</comment>
        <translation>Alle %1 Mountpoints dieses Ports sind belegt.</translation>
    </message>
    <message>
        <source>No messages are enabled for this mountpoint yet.</source>
        <comment>61889</comment>
        <translation>Für diesen Mountpoint sind noch keine Meldungen aktiviert.</translation>
    </message>
    <message>
        <source>The receiver's output settings choose the messages a mountpoint serves.</source>
        <comment>61890</comment>
        <translation>Welche Meldungen ein Mountpoint liefert, legen die Ausgabeeinstellungen des Empfängers fest.</translation>
    </message>
    <message>
        <source>Output…</source>
        <comment>61891</comment>
        <translation>Ausgabe…</translation>
    </message>
    <message>
        <source>Output to the Caster</source>
        <comment>61892</comment>
        <translation>Ausgabe an den Caster</translation>
    </message>
    <message>
        <source>The receiver does not say which messages this mountpoint serves.</source>
        <comment>61893</comment>
        <translation>Der Empfänger gibt nicht an, welche Meldungen dieser Mountpoint liefert.</translation>
    </message>
    <message>
        <source>(cannot be read)</source>
        <comment>61894</comment>
        <translation>(nicht lesbar)</translation>
    </message>
    <message>
        <source>Ethernet</source>
        <comment>61901</comment>
        <translation>Ethernet</translation>
    </message>
    <message>
        <source>Wireless LAN</source>
        <comment>61902</comment>
        <translation>WLAN</translation>
    </message>
    <message>
        <source>Cellular</source>
        <comment>61903</comment>
        <translation>Mobilfunk</translation>
    </message>
    <message>
        <source>PPP</source>
        <comment>61904</comment>
        <translation>PPP</translation>
    </message>
    <message>
        <source>FTP</source>
        <comment>61905</comment>
        <translation>FTP</translation>
    </message>
    <message>
        <source>HTTP</source>
        <comment>61906</comment>
        <translation>HTTP</translation>
    </message>
    <message>
        <source>TCP Server</source>
        <comment>61907</comment>
        <translation>TCP-Server</translation>
    </message>
    <message>
        <source>TCP Client</source>
        <comment>61908</comment>
        <translation>TCP-Client</translation>
    </message>
    <message>
        <source>The functionality is not supported by the connected hardware.</source>
        <comment>61909</comment>
        <translation>Diese Funktion wird von der angeschlossenen Hardware nicht unterstützt.</translation>
    </message>
    <message>
        <source>The changes will take effect after the receiver is soft reset. Proceed?</source>
        <comment>61910</comment>
        <translation>Die Änderungen werden nach einem Neustart des Empfängers wirksam. Fortfahren?</translation>
    </message>
    <message>
        <source>Invalid %1 value.</source>
        <comment>61911</comment>
        <translation>Ungültiger Wert für %1.</translation>
    </message>
    <message>
        <source>IP Address</source>
        <comment>61912</comment>
        <translation>IP-Adresse</translation>
    </message>
    <message>
        <source>IP Mask</source>
        <comment>61913</comment>
        <translation>IP-Maske</translation>
    </message>
    <message>
        <source>Gateway</source>
        <comment>61914</comment>
        <translation>Gateway</translation>
    </message>
    <message>
        <source>DNS</source>
        <comment>61915</comment>
        <translation>DNS</translation>
    </message>
    <message>
        <source>Obtain the address automatically (DHCP)</source>
        <comment>61916</comment>
        <translation>Adresse automatisch beziehen (DHCP)</translation>
    </message>
    <message>
        <source>Fixed Address</source>
        <comment>61917</comment>
        <translation>Feste Adresse</translation>
    </message>
    <message>
        <source>Interface</source>
        <comment>61918</comment>
        <translation>Schnittstelle</translation>
    </message>
    <message>
        <source>Host Name</source>
        <comment>61919</comment>
        <translation>Hostname</translation>
    </message>
    <message>
        <source>MAC Address</source>
        <comment>61920</comment>
        <translation>MAC-Adresse</translation>
    </message>
    <message>
        <source>Mode</source>
        <comment>61921</comment>
        <translation>Modus</translation>
    </message>
    <message>
        <source>Access Point</source>
        <comment>61922</comment>
        <translation>Zugangspunkt</translation>
    </message>
    <message>
        <source>Client</source>
        <comment>61923</comment>
        <translation>Client</translation>
    </message>
    <message>
        <source>Network Name</source>
        <comment>61924</comment>
        <translation>Netzwerkname</translation>
    </message>
    <message>
        <source>Password</source>
        <comment>61925</comment>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Hide the network name</source>
        <comment>61926</comment>
        <translation>Netzwerknamen verbergen</translation>
    </message>
    <message>
        <source>Change…</source>
        <comment>61927</comment>
        <translation>Ändern…</translation>
    </message>
    <message>
        <source>Access Point Address</source>
        <comment>61928</comment>
        <translation>Adresse des Zugangspunkts</translation>
    </message>
    <message>
        <source>Obtained Address</source>
        <comment>61930</comment>
        <translation>Bezogene Adresse</translation>
    </message>
    <message>
        <source>Link Mode</source>
        <comment>61931</comment>
        <translation>Verbindungsart</translation>
    </message>
    <message>
        <source>State</source>
        <comment>61932</comment>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Dialling</source>
        <comment>61933</comment>
        <translation>Einwahl</translation>
    </message>
    <message>
        <source>Dial String</source>
        <comment>61934</comment>
        <translation>Wählfolge</translation>
    </message>
    <message>
        <source>Access Point Name (APN)</source>
        <comment>61935</comment>
        <translation>Zugangspunktname (APN)</translation>
    </message>
    <message>
        <source>User Name</source>
        <comment>61936</comment>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Connect only when asked to</source>
        <comment>61937</comment>
        <translation>Nur auf Anforderung verbinden</translation>
    </message>
    <message>
        <source>Log the link for troubleshooting</source>
        <comment>61938</comment>
        <translation>Verbindung zur Fehlersuche protokollieren</translation>
    </message>
    <message>
        <source>Port</source>
        <comment>61939</comment>
        <translation>Port</translation>
    </message>
    <message>
        <source>Time-out, s</source>
        <comment>61940</comment>
        <translation>Zeitlimit, s</translation>
    </message>
    <message>
        <source>Account</source>
        <comment>61941</comment>
        <translation>Konto</translation>
    </message>
    <message>
        <source>Login</source>
        <comment>61942</comment>
        <translation>Anmeldename</translation>
    </message>
    <message>
        <source>FTP Account</source>
        <comment>61943</comment>
        <translation>FTP-Konto</translation>
    </message>
    <message>
        <source>HTTP Port</source>
        <comment>61944</comment>
        <translation>HTTP-Port</translation>
    </message>
    <message>
        <source>HTTPS Port</source>
        <comment>61945</comment>
        <translation>HTTPS-Port</translation>
    </message>
    <message>
        <source>Web Interface Accounts</source>
        <comment>61946</comment>
        <translation>Konten der Weboberfläche</translation>
    </message>
    <message>
        <source>Set Password…</source>
        <comment>61947</comment>
        <translation>Passwort festlegen…</translation>
    </message>
    <message>
        <source>HTTP Account</source>
        <comment>61948</comment>
        <translation>HTTP-Konto</translation>
    </message>
    <message>
        <source>Password of “%1”</source>
        <comment>61949</comment>
        <translation>Passwort von „%1“</translation>
    </message>
    <message>
        <source>Connect to a TCP server</source>
        <comment>61950</comment>
        <translation>Mit einem TCP-Server verbinden</translation>
    </message>
    <message>
        <source>Server</source>
        <comment>61951</comment>
        <translation>Server</translation>
    </message>
    <message>
        <source>Address</source>
        <comment>61952</comment>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Allow access without a password</source>
        <comment>61953</comment>
        <translation>Zugang ohne Passwort erlauben</translation>
    </message>
    <message>
        <source>Access Password</source>
        <comment>61954</comment>
        <translation>Zugangspasswort</translation>
    </message>
    <message>
        <source>Idle Time, s</source>
        <comment>61955</comment>
        <translation>Leerlaufzeit, s</translation>
    </message>
    <message>
        <source>The TCP server ports themselves are set on the receiver ports sheet.</source>
        <comment>61956</comment>
        <translation>Die TCP-Server-Ports selbst werden in den Empfängerschnittstellen eingestellt.</translation>
    </message>
    <message>
        <source>View:</source>
        <comment>61957</comment>
        <translation>Ansicht:</translation>
    </message>
    <message>
        <source>Modems</source>
        <comment>61958</comment>
        <translation>Modems</translation>
    </message>
    <message>
        <source>Modems and Profile</source>
        <comment>61959</comment>
        <translation>Modems und Profil</translation>
    </message>
    <message>
        <source>Refresh</source>
        <comment>61960</comment>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Profile of the Selected Modem</source>
        <comment>61961</comment>
        <translation>Profil des gewählten Modems</translation>
    </message>
    <message>
        <source>Slot</source>
        <comment>61962</comment>
        <translation>Steckplatz</translation>
    </message>
    <message>
        <source>Hardware</source>
        <comment>61963</comment>
        <translation>Hardware</translation>
    </message>
    <message>
        <source>Current State</source>
        <comment>61964</comment>
        <translation>Aktueller Zustand</translation>
    </message>
    <message>
        <source>Report</source>
        <comment>61965</comment>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>Current Profile</source>
        <comment>61966</comment>
        <translation>Aktuelles Profil</translation>
    </message>
    <message>
        <source>Current Script</source>
        <comment>61967</comment>
        <translation>Aktuelles Skript</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>61968</comment>
        <translation>Name</translation>
    </message>
    <message>
        <source>Id</source>
        <comment>61969</comment>
        <translation>Id</translation>
    </message>
    <message>
        <source>Value</source>
        <comment>61970</comment>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Description</source>
        <comment>61971</comment>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Access point name of the mobile network</source>
        <comment>61972</comment>
        <translation>Zugangspunktname des Mobilfunknetzes</translation>
    </message>
    <message>
        <source>User name in the mobile network</source>
        <comment>61973</comment>
        <translation>Benutzername im Mobilfunknetz</translation>
    </message>
    <message>
        <source>Password in the mobile network</source>
        <comment>61974</comment>
        <translation>Passwort im Mobilfunknetz</translation>
    </message>
    <message>
        <source>PIN of the SIM card</source>
        <comment>61975</comment>
        <translation>PIN der SIM-Karte</translation>
    </message>
    <message>
        <source>Number the modem dials</source>
        <comment>61976</comment>
        <translation>Vom Modem gewählte Nummer</translation>
    </message>
    <message>
        <source>Radio band</source>
        <comment>61977</comment>
        <translation>Funkband</translation>
    </message>
    <message>
        <source>Dial attempts before giving up</source>
        <comment>61978</comment>
        <translation>Wählversuche vor dem Aufgeben</translation>
    </message>
    <message>
        <source>Seconds to wait for a connection</source>
        <comment>61979</comment>
        <translation>Sekunden Wartezeit auf eine Verbindung</translation>
    </message>
    <message>
        <source>Server Login</source>
        <comment>61980</comment>
        <translation>Server-Anmeldung</translation>
    </message>
    <message>
        <source>Notifications</source>
        <comment>62000</comment>
        <translation>Benachrichtigungen</translation>
    </message>
    <message>
        <source>Email Account</source>
        <comment>62001</comment>
        <translation>E-Mail-Konto</translation>
    </message>
    <message>
        <source>User Information</source>
        <comment>62002</comment>
        <translation>Benutzerinformationen</translation>
    </message>
    <message>
        <source>User Name:</source>
        <comment>62003</comment>
        <translation>Benutzername:</translation>
    </message>
    <message>
        <source>Password:</source>
        <comment>62004</comment>
        <translation>Passwort:</translation>
    </message>
    <message>
        <source>Outgoing Mail Server Information</source>
        <comment>62005</comment>
        <translation>Postausgangsserver</translation>
    </message>
    <message>
        <source>...</source>
        <comment>62006</comment>
        <translation>...</translation>
    </message>
    <message>
        <source>Outgoing Server</source>
        <comment>62007</comment>
        <translation>Postausgangsserver</translation>
    </message>
    <message>
        <source>Host Name:</source>
        <comment>62008</comment>
        <translation>Hostname:</translation>
    </message>
    <message>
        <source>TCP Port:</source>
        <comment>62009</comment>
        <translation>TCP-Port:</translation>
    </message>
    <message>
        <source>Authentication Method:</source>
        <comment>62010</comment>
        <translation>Authentifizierungsverfahren:</translation>
    </message>
    <message>
        <source>TLS</source>
        <comment>62011</comment>
        <translation>TLS</translation>
    </message>
    <message>
        <source>STARTTLS</source>
        <comment>62012</comment>
        <translation>STARTTLS</translation>
    </message>
    <message>
        <source>Events</source>
        <comment>62015</comment>
        <translation>Ereignisse</translation>
    </message>
    <message>
        <source>Description</source>
        <comment>62016</comment>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Threshold</source>
        <comment>62017</comment>
        <translation>Schwellenwert</translation>
    </message>
    <message>
        <source>Notify Periodically</source>
        <comment>62018</comment>
        <translation>Regelmäßig benachrichtigen</translation>
    </message>
    <message>
        <source>Event</source>
        <comment>62019</comment>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>Description:</source>
        <comment>62020</comment>
        <translation>Beschreibung:</translation>
    </message>
    <message>
        <source>Threshold:</source>
        <comment>62021</comment>
        <translation>Schwellenwert:</translation>
    </message>
    <message>
        <source>Notify Once</source>
        <comment>62022</comment>
        <translation>Einmal benachrichtigen</translation>
    </message>
    <message>
        <source>Notify Periodically</source>
        <comment>62023</comment>
        <translation>Regelmäßig benachrichtigen</translation>
    </message>
    <message>
        <source>Period, s:</source>
        <comment>62024</comment>
        <translation>Intervall, s:</translation>
    </message>
    <message>
        <source>Every %1 s</source>
        <comment>62025</comment>
        <translation>Alle %1 s</translation>
    </message>
    <message>
        <source>No</source>
        <comment>62026</comment>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Minimum Number of Tracking Satellites</source>
        <comment>62027</comment>
        <translation>Mindestanzahl verfolgter Satelliten</translation>
    </message>
    <message>
        <source>Minimum Charge Level of Battery A, %</source>
        <comment>62028</comment>
        <translation>Mindestladestand von Akku A, %</translation>
    </message>
    <message>
        <source>Minimum Charge Level of Battery B, %</source>
        <comment>62029</comment>
        <translation>Mindestladestand von Akku B, %</translation>
    </message>
    <message>
        <source>Minimum Available Disk Space, MB</source>
        <comment>62030</comment>
        <translation>Mindestens freier Speicherplatz, MB</translation>
    </message>
    <message>
        <source>Maximum Base Station Offset, m</source>
        <comment>62031</comment>
        <translation>Maximale Abweichung der Basisstation, m</translation>
    </message>
    <message>
        <source>Watchers</source>
        <comment>62033</comment>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Watcher</source>
        <comment>62034</comment>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Id:</source>
        <comment>62035</comment>
        <translation>ID:</translation>
    </message>
    <message>
        <source>Email:</source>
        <comment>62036</comment>
        <translation>E-Mail:</translation>
    </message>
    <message>
        <source>Warning Level:</source>
        <comment>62037</comment>
        <translation>Warnstufe:</translation>
    </message>
    <message>
        <source>Id</source>
        <comment>62038</comment>
        <translation>ID</translation>
    </message>
    <message>
        <source>Email</source>
        <comment>62039</comment>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Warning Level</source>
        <comment>62040</comment>
        <translation>Warnstufe</translation>
    </message>
    <message>
        <source>Wrong EMail.</source>
        <comment>62043</comment>
        <translation>Ungültige E-Mail-Adresse.</translation>
    </message>
    <message>
        <source>New</source>
        <comment>62045</comment>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Messages of this level and of more severe levels are sent to this address.</source>
        <comment>62046</comment>
        <translation>Meldungen dieser Stufe und schwerwiegenderer Stufen werden an diese Adresse gesendet.</translation>
    </message>
    <message>
        <source>Bluetooth LE</source>
        <comment>62100</comment>
        <translation>Bluetooth LE</translation>
    </message>
    <message>
        <source>General</source>
        <comment>62101</comment>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Information</source>
        <comment>62102</comment>
        <translation>Information</translation>
    </message>
    <message>
        <source>Name:</source>
        <comment>62103</comment>
        <translation>Name:</translation>
    </message>
    <message>
        <source>PIN:</source>
        <comment>62104</comment>
        <translation>PIN:</translation>
    </message>
    <message>
        <source>Address:</source>
        <comment>62105</comment>
        <translation>Adresse:</translation>
    </message>
    <message>
        <source>Enable Bluetooth Smart Radio</source>
        <comment>62106</comment>
        <translation>Bluetooth-Smart-Funk einschalten</translation>
    </message>
    <message>
        <source>Factory Reset</source>
        <comment>62107</comment>
        <translation>Werkseinstellungen</translation>
    </message>
    <message>
        <source>The device&apos;s settings will be reset to their factory values. Please confirm.</source>
        <comment>62108</comment>
        <translation>Die Einstellungen des Geräts werden auf die Werkseinstellungen zurückgesetzt. Bitte bestätigen Sie.</translation>
    </message>
    <message>
        <source>Initializing Bluetooth LE</source>
        <comment>62109</comment>
        <translation>Bluetooth LE wird initialisiert</translation>
    </message>
    <message>
        <source>Detecting Bluetooth LE</source>
        <comment>62110</comment>
        <translation>Bluetooth LE wird gesucht</translation>
    </message>
    <message>
        <source>Property</source>
        <comment>62111</comment>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <comment>62112</comment>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <comment>62113</comment>
        <translation>Bluetooth</translation>
    </message>
    <message>
        <source>Identification</source>
        <comment>62114</comment>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Authentication</source>
        <comment>62115</comment>
        <translation>Authentifizierung</translation>
    </message>
    <message>
        <source>Encryption</source>
        <comment>62116</comment>
        <translation>Verschlüsselung</translation>
    </message>
    <message>
        <source>Parameters</source>
        <comment>62117</comment>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>The receiver model &quot;%1&quot; has no Bluetooth module that can be configured here.</source>
        <comment>62118</comment>
        <translation>Das Empfängermodell „%1“ hat kein Bluetooth-Modul, das sich hier einrichten lässt.</translation>
    </message>
    <message>
        <source>The text &quot;%1&quot; cannot be sent to the Bluetooth module: it contains a character the module cannot take in a command.</source>
        <comment>62119</comment>
        <translation>Der Text „%1“ kann nicht an das Bluetooth-Modul gesendet werden: Er enthält ein Zeichen, das das Modul in einem Befehl nicht annehmen kann.</translation>
    </message>
    <message>
        <source>6 to 16 digits, or none. A shorter PIN is filled up with leading zeros.</source>
        <comment>62120</comment>
        <translation>6 bis 16 Ziffern oder keine. Eine kürzere PIN wird vorne mit Nullen aufgefüllt.</translation>
    </message>
    <message>
        <source>Bluetooth LE module on port %1</source>
        <comment>62121</comment>
        <translation>Bluetooth-LE-Modul an Port %1</translation>
    </message>
    <message>
        <source>Bluetooth LE module command %1</source>
        <comment>62122</comment>
        <translation>Befehl %1 an das Bluetooth-LE-Modul</translation>
    </message>
    <message>
        <source>Bluetooth module command %1</source>
        <comment>62123</comment>
        <translation>Befehl %1 an das Bluetooth-Modul</translation>
    </message>
</context>
<context>
    <name>PellNames</name>
    <message>
        <source>GPS</source>
        <translation>GPS</translation>
    </message>
    <message>
        <source>GLONASS</source>
        <translation>GLONASS</translation>
    </message>
    <message>
        <source>L1</source>
        <translation>L1</translation>
    </message>
    <message>
        <source>L2</source>
        <translation>L2</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>300 baud</source>
        <translation>300 Baud</translation>
    </message>
    <message>
        <source>600 baud</source>
        <translation>600 Baud</translation>
    </message>
    <message>
        <source>1200 baud</source>
        <translation>1200 Baud</translation>
    </message>
    <message>
        <source>2400 baud</source>
        <translation>2400 Baud</translation>
    </message>
    <message>
        <source>4800 baud</source>
        <translation>4800 Baud</translation>
    </message>
    <message>
        <source>9600 baud</source>
        <translation>9600 Baud</translation>
    </message>
    <message>
        <source>19200 baud</source>
        <translation>19200 Baud</translation>
    </message>
    <message>
        <source>38400 baud</source>
        <translation>38400 Baud</translation>
    </message>
    <message>
        <source>57600 baud</source>
        <translation>57600 Baud</translation>
    </message>
    <message>
        <source>115200 baud</source>
        <translation>115200 Baud</translation>
    </message>
    <message>
        <source>153600 baud</source>
        <translation>153600 Baud</translation>
    </message>
    <message>
        <source>230400 baud</source>
        <translation>230400 Baud</translation>
    </message>
    <message>
        <source>460800 baud</source>
        <translation>460800 Baud</translation>
    </message>
    <message>
        <source>921600 baud</source>
        <translation>921600 Baud</translation>
    </message>
    <message>
        <source>Static</source>
        <translation>Statisch</translation>
    </message>
    <message>
        <source>Kinematic</source>
        <translation>Kinematisch</translation>
    </message>
    <message>
        <source>Toggle Static/Kinematic</source>
        <translation>Statisch/Kinematisch umschalten</translation>
    </message>
    <message>
        <source>5 bits</source>
        <translation>5 Bit</translation>
    </message>
    <message>
        <source>6 bits</source>
        <translation>6 Bit</translation>
    </message>
    <message>
        <source>7 bits</source>
        <translation>7 Bit</translation>
    </message>
    <message>
        <source>8 bits</source>
        <translation>8 Bit</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Level Only</source>
        <translation>Nur Libelle</translation>
    </message>
    <message>
        <source>Compass Only</source>
        <translation>Nur Kompass</translation>
    </message>
    <message>
        <source>Level and Compass</source>
        <translation>Libelle und Kompass</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Start/Stop Logging</source>
        <translation>Aufzeichnung starten/stoppen</translation>
    </message>
    <message>
        <source>Switch Base/Rover</source>
        <translation>Basis/Rover umschalten</translation>
    </message>
    <message>
        <source>Reinitialise RTK</source>
        <translation>RTK neu initialisieren</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Client</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Initialising</source>
        <translation>Initialisierung</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Dialing</source>
        <translation>Wählt</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>GSM/GPRS</source>
        <translation>GSM/GPRS</translation>
    </message>
    <message>
        <source>UMTS</source>
        <translation>UMTS</translation>
    </message>
    <message>
        <source>LTE</source>
        <translation>LTE</translation>
    </message>
    <message>
        <source>UHF Radio</source>
        <translation>UHF-Funk</translation>
    </message>
    <message>
        <source>609 sps</source>
        <translation>609 Symbole/s</translation>
    </message>
    <message>
        <source>1219 sps</source>
        <translation>1219 Symbole/s</translation>
    </message>
    <message>
        <source>2438 sps</source>
        <translation>2438 Symbole/s</translation>
    </message>
    <message>
        <source>4876 sps</source>
        <translation>4876 Symbole/s</translation>
    </message>
    <message>
        <source>9752 sps</source>
        <translation>9752 Symbole/s</translation>
    </message>
    <message>
        <source>Standalone</source>
        <translation>Autonom</translation>
    </message>
    <message>
        <source>SBAS</source>
        <translation>SBAS</translation>
    </message>
    <message>
        <source>Code Differential</source>
        <translation>Code-differenziell</translation>
    </message>
    <message>
        <source>RTK</source>
        <translation>RTK</translation>
    </message>
    <message>
        <source>PPP</source>
        <translation>PPP</translation>
    </message>
    <message>
        <source>Best Available</source>
        <translation>Beste verfügbare</translation>
    </message>
    <message>
        <source>Restore Last Settings</source>
        <translation>Letzte Einstellungen wiederherstellen</translation>
    </message>
    <message>
        <source>Factory Settings</source>
        <translation>Werkseinstellungen</translation>
    </message>
    <message>
        <source>Load Profile</source>
        <translation>Profil laden</translation>
    </message>
    <message>
        <source>1 bit</source>
        <translation>1 Bit</translation>
    </message>
    <message>
        <source>2 bits</source>
        <translation>2 Bit</translation>
    </message>
    <message>
        <source>User Defined</source>
        <translation>Benutzerdefiniert</translation>
    </message>
    <message>
        <source>Last Known</source>
        <translation>Zuletzt bekannt</translation>
    </message>
    <message>
        <source>Extra Low</source>
        <translation>Sehr niedrig</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Niedrig</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Internal</source>
        <translation>Intern</translation>
    </message>
    <message>
        <source>External</source>
        <translation>Extern</translation>
    </message>
    <message>
        <source>Battery A</source>
        <translation>Akku A</translation>
    </message>
    <message>
        <source>Battery B</source>
        <translation>Akku B</translation>
    </message>
    <message>
        <source>Batteries A and B</source>
        <translation>Akkus A und B</translation>
    </message>
    <message>
        <source>Serial A</source>
        <translation>Seriell A</translation>
    </message>
    <message>
        <source>Serial B</source>
        <translation>Seriell B</translation>
    </message>
    <message>
        <source>Serial C</source>
        <translation>Seriell C</translation>
    </message>
    <message>
        <source>Serial D</source>
        <translation>Seriell D</translation>
    </message>
    <message>
        <source>Closed</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Geöffnet</translation>
    </message>
    <message>
        <source>Busy</source>
        <translation>Belegt</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Seriell</translation>
    </message>
    <message>
        <source>USB</source>
        <translation>USB</translation>
    </message>
    <message>
        <source>TCP</source>
        <translation>TCP</translation>
    </message>
    <message>
        <source>TCP Client</source>
        <translation>TCP-Client</translation>
    </message>
    <message>
        <source>UDP</source>
        <translation>UDP</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>Bluetooth</translation>
    </message>
    <message>
        <source>Bluetooth LE</source>
        <translation>Bluetooth LE</translation>
    </message>
    <message>
        <source>NTRIP</source>
        <translation>NTRIP</translation>
    </message>
    <message>
        <source>Modem</source>
        <translation>Modem</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>Klartext</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Login</translation>
    </message>
    <message>
        <source>CRAM-MD5</source>
        <translation>CRAM-MD5</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Open Circuit</source>
        <translation>Unterbrechung</translation>
    </message>
    <message>
        <source>Short Circuit</source>
        <translation>Kurzschluss</translation>
    </message>
    <message>
        <source>Not Powered</source>
        <translation>Ohne Versorgung</translation>
    </message>
    <message>
        <source>No Signal</source>
        <translation>Kein Signal</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Internal Oscillator</source>
        <translation>Interner Oszillator</translation>
    </message>
    <message>
        <source>External Frequency</source>
        <translation>Externe Frequenz</translation>
    </message>
    <message>
        <source>Not Used</source>
        <translation>Nicht verwendet</translation>
    </message>
    <message>
        <source>Locking</source>
        <translation>Rastet ein</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Eingerastet</translation>
    </message>
    <message>
        <source>Echo</source>
        <translation>Echo</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>RTCM 2.x</source>
        <translation>RTCM 2.x</translation>
    </message>
    <message>
        <source>RTCM 3.x</source>
        <translation>RTCM 3.x</translation>
    </message>
    <message>
        <source>CMR</source>
        <translation>CMR</translation>
    </message>
    <message>
        <source>JPS</source>
        <translation>JPS</translation>
    </message>
    <message>
        <source>OmniSTAR</source>
        <translation>OmniSTAR</translation>
    </message>
    <message>
        <source>Broadcast Model</source>
        <translation>Broadcast-Modell</translation>
    </message>
    <message>
        <source>SBAS Grid</source>
        <translation>SBAS-Gitter</translation>
    </message>
    <message>
        <source>VBS</source>
        <translation>VBS</translation>
    </message>
    <message>
        <source>HP</source>
        <translation>HP</translation>
    </message>
    <message>
        <source>XP</source>
        <translation>XP</translation>
    </message>
    <message>
        <source>Relay</source>
        <translation>Relais</translation>
    </message>
    <message>
        <source>DGPS</source>
        <translation>DGPS</translation>
    </message>
    <message>
        <source>Raw Data</source>
        <translation>Rohdaten</translation>
    </message>
    <message>
        <source>Critical</source>
        <translation>Kritisch</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>Basic</translation>
    </message>
    <message>
        <source>Digest</source>
        <translation>Digest</translation>
    </message>
    <message>
        <source>All Mountpoints</source>
        <translation>Alle Mountpoints</translation>
    </message>
    <message>
        <source>Group 1</source>
        <translation>Gruppe 1</translation>
    </message>
    <message>
        <source>Group 2</source>
        <translation>Gruppe 2</translation>
    </message>
    <message>
        <source>Group 3</source>
        <translation>Gruppe 3</translation>
    </message>
    <message>
        <source>Group 4</source>
        <translation>Gruppe 4</translation>
    </message>
    <message>
        <source>NTRIP 1.0</source>
        <translation>NTRIP 1.0</translation>
    </message>
    <message>
        <source>NTRIP 2.0</source>
        <translation>NTRIP 2.0</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Float</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>Fixiert</translation>
    </message>
    <message>
        <source>Even</source>
        <translation>Gerade</translation>
    </message>
    <message>
        <source>Odd</source>
        <translation>Ungerade</translation>
    </message>
    <message>
        <source>Backup Only</source>
        <translation>Nur als Reserve</translation>
    </message>
    <message>
        <source>RINEX 2.10</source>
        <translation>RINEX 2.10</translation>
    </message>
    <message>
        <source>RINEX 2.11</source>
        <translation>RINEX 2.11</translation>
    </message>
    <message>
        <source>RINEX 2.12</source>
        <translation>RINEX 2.12</translation>
    </message>
    <message>
        <source>RINEX 3.00</source>
        <translation>RINEX 3.00</translation>
    </message>
    <message>
        <source>RINEX 3.01</source>
        <translation>RINEX 3.01</translation>
    </message>
    <message>
        <source>RINEX 3.02</source>
        <translation>RINEX 3.02</translation>
    </message>
    <message>
        <source>RINEX 3.03</source>
        <translation>RINEX 3.03</translation>
    </message>
    <message>
        <source>GZIP</source>
        <translation>GZIP</translation>
    </message>
    <message>
        <source>Hatanaka + GZIP</source>
        <translation>Hatanaka + GZIP</translation>
    </message>
    <message>
        <source>UTC</source>
        <translation>UTC</translation>
    </message>
    <message>
        <source>Galileo</source>
        <translation>Galileo</translation>
    </message>
    <message>
        <source>BeiDou</source>
        <translation>BeiDou</translation>
    </message>
    <message>
        <source>Local</source>
        <translation>Ortszeit</translation>
    </message>
    <message>
        <source>Once</source>
        <translation>Einmalig</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Wiederholt</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>Present</source>
        <translation>Vorhanden</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Access Point</source>
        <translation>Zugangspunkt</translation>
    </message>
    <message>
        <source>Used in the position solution</source>
        <translation>In der Positionslösung verwendet</translation>
    </message>
    <message>
        <source>Searching for the signal</source>
        <translation>Signal wird gesucht</translation>
    </message>
    <message>
        <source>Signal acquired, synchronising to the data</source>
        <translation>Signal erfasst, Synchronisation auf die Daten</translation>
    </message>
    <message>
        <source>Tracked, waiting for the ephemeris</source>
        <translation>Verfolgt, Ephemeriden ausstehend</translation>
    </message>
    <message>
        <source>Tracked, the satellite reports itself unhealthy</source>
        <translation>Verfolgt, der Satellit meldet sich als fehlerhaft</translation>
    </message>
    <message>
        <source>Tracked, below the elevation mask</source>
        <translation>Verfolgt, unterhalb der Elevationsmaske</translation>
    </message>
    <message>
        <source>Tracked but not used in the position solution</source>
        <translation>Verfolgt, aber nicht in der Positionslösung verwendet</translation>
    </message>
    <message>
        <source>Rejected by the integrity check (RAIM)</source>
        <translation>Von der Integritätsprüfung (RAIM) verworfen</translation>
    </message>
    <message>
        <source>Excluded by the user</source>
        <translation>Vom Benutzer ausgeschlossen</translation>
    </message>
    <message>
        <source>Tracked, signal below the signal-to-noise mask</source>
        <translation>Verfolgt, Signal unterhalb der Signal-Rausch-Maske</translation>
    </message>
    <message>
        <source>Tracked, ephemeris out of date</source>
        <translation>Verfolgt, Ephemeriden veraltet</translation>
    </message>
    <message>
        <source>Used in the position solution without differential corrections</source>
        <translation>Ohne differentielle Korrekturen in der Positionslösung verwendet</translation>
    </message>
    <message>
        <source>Used in the RTK solution</source>
        <translation>In der RTK-Lösung verwendet</translation>
    </message>
    <message>
        <source>Used for SBAS corrections only</source>
        <translation>Nur für SBAS-Korrekturen verwendet</translation>
    </message>
    <message>
        <source>Lost, reacquiring the signal</source>
        <translation>Verloren, Signal wird neu erfasst</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Rising</source>
        <translation>Steigend</translation>
    </message>
    <message>
        <source>Falling</source>
        <translation>Fallend</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Verzögerung</translation>
    </message>
    <message>
        <source>Extrapolation</source>
        <translation>Extrapolation</translation>
    </message>
    <message>
        <source>Multipath Reduction</source>
        <translation>Mehrwegereduzierung</translation>
    </message>
    <message>
        <source>Calculated</source>
        <translation>Berechnet</translation>
    </message>
    <message>
        <source>Moving Base</source>
        <translation>Bewegliche Basis</translation>
    </message>
    <message>
        <source>Heading Rover</source>
        <translation>Heading-Rover</translation>
    </message>
    <message>
        <source>NMEA</source>
        <translation>NMEA</translation>
    </message>
    <message>
        <source>Ntrip is disabled</source>
        <translation>NTRIP ist ausgeschaltet</translation>
    </message>
    <message>
        <source>Trying to connect</source>
        <translation>Verbindungsversuch</translation>
    </message>
    <message>
        <source>Getting corrections</source>
        <translation>Empfängt Korrekturen</translation>
    </message>
    <message>
        <source>Unable to connect</source>
        <translation>Keine Verbindung möglich</translation>
    </message>
    <message>
        <source>NMEA GGA</source>
        <translation>NMEA GGA</translation>
    </message>
    <message>
        <source>Last Position</source>
        <translation>Letzte Position</translation>
    </message>
    <message>
        <source>GPRS</source>
        <translation>GPRS</translation>
    </message>
    <message>
        <source>CSD</source>
        <translation>CSD</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Getrennt</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Verbindet</translation>
    </message>
    <message>
        <source>Ethernet</source>
        <translation>Ethernet</translation>
    </message>
    <message>
        <source>Wireless LAN</source>
        <translation>WLAN</translation>
    </message>
    <message>
        <source>Cellular</source>
        <translation>Mobilfunk</translation>
    </message>
</context>
</TS>
