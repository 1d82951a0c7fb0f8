<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en">
<context>
    <name>Wexel</name>
    <message>
        <source>  Try restarting the app or contact admin.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ALL OTHERS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ALL PERMISSIONS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>APP VERSION</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>App's administrator has disabled bug reporting for now  </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Attachment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AVAILABLE MEMORY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AVAILABLE STORAGE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BLUR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bug</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bug submitted successfully.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cellular</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close palette</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CURRENT VIEW</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Describe the bug and tap Submit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Done. </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DRAW</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Essentials</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Granted permissions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>How to report better bugs?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inspect bug</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LOCALE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark the bug</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NETWORK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NOT AVAILABLE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Offline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Optional, if you're available for a follow-up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PALETTE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quick Facts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quick Facts not enabled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove screenshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report a bug</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reporting disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RESOLUTION</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Submit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WEXEL SDK VERSION</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>WiFi</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wrap-up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your email</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
