<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Wexel</name>
    <message>
        <source>  Try restarting the app or contact admin.</source>
        <translation>  Starte die App neu oder frag die Administration.</translation>
    </message>
    <message>
        <source>ALL OTHERS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>ALLE ANDEREN WURDEN ABGELEHNT ODER NICHT ERBETEN.</translation>
    </message>
    <message>
        <source>ALL PERMISSIONS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>ALLE BERECHTIGUNGEN WURDEN ABGELEHNT ODER NICHT ERBETEN.</translation>
    </message>
    <message>
        <source>APP VERSION</source>
        <translation>APP-VERSION</translation>
    </message>
    <message>
        <source>App's administrator has disabled bug reporting for now  </source>
        <translation>Die Administration der App hat Fehlerberichte vorerst abgeschaltet  </translation>
    </message>
    <message>
        <source>Attachment</source>
        <translation>Anhang</translation>
    </message>
    <message>
        <source>AVAILABLE MEMORY</source>
        <translation>FREIER ARBEITSSPEICHER</translation>
    </message>
    <message>
        <source>AVAILABLE STORAGE</source>
        <translation>FREIER SPEICHERPLATZ</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>BLUR</source>
        <translation>UNSCHARF</translation>
    </message>
    <message>
        <source>Bug</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Bug submitted successfully.</source>
        <translation>Der Fehler wurde gemeldet.</translation>
    </message>
    <message>
        <source>Cellular</source>
        <translation>Mobilfunk</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>LÖSCHEN</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close palette</source>
        <translation>Palette schließen</translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation>Farbe %1</translation>
    </message>
    <message>
        <source>CURRENT VIEW</source>
        <translation>AKTUELLE ANSICHT</translation>
    </message>
    <message>
        <source>Describe the bug and tap Submit</source>
        <translation>Beschreibe den Fehler und tippe auf Senden</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>GERÄT</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Done. </source>
        <translation>Fertig. </translation>
    </message>
    <message>
        <source>DRAW</source>
        <translation>ZEICHNEN</translation>
    </message>
    <message>
        <source>Essentials</source>
        <translation>Das Wichtigste</translation>
    </message>
    <message>
        <source>Granted permissions</source>
        <translation>Erteilte Berechtigungen</translation>
    </message>
    <message>
        <source>How to report better bugs?</source>
        <translation>Wie meldet man Fehler gut?</translation>
    </message>
    <message>
        <source>Inspect bug</source>
        <translation>Bericht ansehen</translation>
    </message>
    <message>
        <source>LOCALE</source>
        <translation>REGION</translation>
    </message>
    <message>
        <source>Mark the bug</source>
        <translation>Fehler markieren</translation>
    </message>
    <message>
        <source>NETWORK</source>
        <translation>NETZWERK</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>NOT AVAILABLE</source>
        <translation>NICHT VERFÜGBAR</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>Optional, if you're available for a follow-up</source>
        <translation>Freiwillig, falls du für Rückfragen da bist</translation>
    </message>
    <message>
        <source>PALETTE</source>
        <translation>FARBEN</translation>
    </message>
    <message>
        <source>Quick Facts</source>
        <translation>Kurzinfos</translation>
    </message>
    <message>
        <source>Quick Facts not enabled.</source>
        <translation>Kurzinfos sind nicht aktiviert.</translation>
    </message>
    <message>
        <source>Read here</source>
        <translation>Hier lesen</translation>
    </message>
    <message>
        <source>Remove screenshot</source>
        <translation>Bildschirmfoto entfernen</translation>
    </message>
    <message>
        <source>Report a bug</source>
        <translation>Fehler melden</translation>
    </message>
    <message>
        <source>Reporting disabled</source>
        <translation>Meldungen abgeschaltet</translation>
    </message>
    <message>
        <source>RESOLUTION</source>
        <translation>AUFLÖSUNG</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>Bildschirmfoto</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>WEXEL SDK VERSION</source>
        <translation>VERSION DES WEXEL-SDK</translation>
    </message>
    <message>
        <source>WiFi</source>
        <translation>WLAN</translation>
    </message>
    <message>
        <source>Wrap-up</source>
        <translation>Abschluss</translation>
    </message>
    <message>
        <source>Your email</source>
        <translation>Deine E-Mail-Adresse</translation>
    </message>
</context>
</TS>
