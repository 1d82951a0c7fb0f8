<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en">
<context>
    <name>Wexel</name>
    <message>
        <source>  Try restarting the app or contact admin.</source>
        <translation>  Prueba a reiniciar la app o contacta con el administrador.</translation>
    </message>
    <message>
        <source>ALL OTHERS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>LOS DEMÁS SE DENEGARON O NO SE SOLICITARON.</translation>
    </message>
    <message>
        <source>ALL PERMISSIONS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>TODOS LOS PERMISOS SE DENEGARON O NO SE SOLICITARON.</translation>
    </message>
    <message>
        <source>APP VERSION</source>
        <translation>VERSIÓN DE LA APP</translation>
    </message>
    <message>
        <source>App's administrator has disabled bug reporting for now  </source>
        <translation>El administrador de la app ha desactivado por ahora el envío de errores  </translation>
    </message>
    <message>
        <source>Attachment</source>
        <translation>Adjunto</translation>
    </message>
    <message>
        <source>AVAILABLE MEMORY</source>
        <translation>MEMORIA DISPONIBLE</translation>
    </message>
    <message>
        <source>AVAILABLE STORAGE</source>
        <translation>ALMACENAMIENTO DISPONIBLE</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>BLUR</source>
        <translation>DIFUMINAR</translation>
    </message>
    <message>
        <source>Bug</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Bug submitted successfully.</source>
        <translation>El error se ha enviado.</translation>
    </message>
    <message>
        <source>Cellular</source>
        <translation>Datos móviles</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>BORRAR</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Close palette</source>
        <translation>Cerrar la paleta</translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation>Color %1</translation>
    </message>
    <message>
        <source>CURRENT VIEW</source>
        <translation>VISTA ACTUAL</translation>
    </message>
    <message>
        <source>Describe the bug and tap Submit</source>
        <translation>Describe el error y pulsa Enviar</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>DISPOSITIVO</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Done. </source>
        <translation>Listo. </translation>
    </message>
    <message>
        <source>DRAW</source>
        <translation>DIBUJAR</translation>
    </message>
    <message>
        <source>Essentials</source>
        <translation>Lo esencial</translation>
    </message>
    <message>
        <source>Granted permissions</source>
        <translation>Permisos concedidos</translation>
    </message>
    <message>
        <source>How to report better bugs?</source>
        <translation>¿Cómo informar mejor de los errores?</translation>
    </message>
    <message>
        <source>Inspect bug</source>
        <translation>Revisar el informe</translation>
    </message>
    <message>
        <source>LOCALE</source>
        <translation>REGIÓN</translation>
    </message>
    <message>
        <source>Mark the bug</source>
        <translation>Marca el error</translation>
    </message>
    <message>
        <source>NETWORK</source>
        <translation>RED</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>NOT AVAILABLE</source>
        <translation>NO DISPONIBLE</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Sin conexión</translation>
    </message>
    <message>
        <source>Optional, if you're available for a follow-up</source>
        <translation>Opcional, si podemos hacerte alguna pregunta</translation>
    </message>
    <message>
        <source>PALETTE</source>
        <translation>PALETA</translation>
    </message>
    <message>
        <source>Quick Facts</source>
        <translation>Datos rápidos</translation>
    </message>
    <message>
        <source>Quick Facts not enabled.</source>
        <translation>Los datos rápidos no están activados.</translation>
    </message>
    <message>
        <source>Read here</source>
        <translation>Léelo aquí</translation>
    </message>
    <message>
        <source>Remove screenshot</source>
        <translation>Quitar la captura</translation>
    </message>
    <message>
        <source>Report a bug</source>
        <translation>Informar de un error</translation>
    </message>
    <message>
        <source>Reporting disabled</source>
        <translation>Informes desactivados</translation>
    </message>
    <message>
        <source>RESOLUTION</source>
        <translation>RESOLUCIÓN</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>Captura de pantalla</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Enviar</translation>
    </message>
    <message>
        <source>WEXEL SDK VERSION</source>
        <translation>VERSIÓN DEL SDK DE WEXEL</translation>
    </message>
    <message>
        <source>WiFi</source>
        <translation>Wi-Fi</translation>
    </message>
    <message>
        <source>Wrap-up</source>
        <translation>Último paso</translation>
    </message>
    <message>
        <source>Your email</source>
        <translation>Tu correo electrónico</translation>
    </message>
</context>
</TS>
