<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en">
<context>
    <name>Wexel</name>
    <message>
        <source>  Try restarting the app or contact admin.</source>
        <translation>  Essayez de redémarrer l’application ou contactez l’administrateur.</translation>
    </message>
    <message>
        <source>ALL OTHERS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>TOUTES LES AUTRES ONT ÉTÉ REFUSÉES OU NON DEMANDÉES.</translation>
    </message>
    <message>
        <source>ALL PERMISSIONS WERE EITHER DENIED OR NOT ASKED FOR.</source>
        <translation>TOUTES LES AUTORISATIONS ONT ÉTÉ REFUSÉES OU NON DEMANDÉES.</translation>
    </message>
    <message>
        <source>APP VERSION</source>
        <translation>VERSION DE L’APPLICATION</translation>
    </message>
    <message>
        <source>App's administrator has disabled bug reporting for now  </source>
        <translation>L’administrateur de l’application a désactivé le signalement de bugs pour le moment  </translation>
    </message>
    <message>
        <source>Attachment</source>
        <translation>Pièce jointe</translation>
    </message>
    <message>
        <source>AVAILABLE MEMORY</source>
        <translation>MÉMOIRE DISPONIBLE</translation>
    </message>
    <message>
        <source>AVAILABLE STORAGE</source>
        <translation>STOCKAGE DISPONIBLE</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>BLUR</source>
        <translation>FLOUTER</translation>
    </message>
    <message>
        <source>Bug</source>
        <translation>Bug</translation>
    </message>
    <message>
        <source>Bug submitted successfully.</source>
        <translation>Le bug a bien été envoyé.</translation>
    </message>
    <message>
        <source>Cellular</source>
        <translation>Réseau mobile</translation>
    </message>
    <message>
        <source>CLEAR</source>
        <translation>EFFACER</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Close palette</source>
        <translation>Fermer la palette</translation>
    </message>
    <message>
        <source>Colour %1</source>
        <translation>Couleur %1</translation>
    </message>
    <message>
        <source>CURRENT VIEW</source>
        <translation>VUE ACTUELLE</translation>
    </message>
    <message>
        <source>Describe the bug and tap Submit</source>
        <translation>Décrivez le bug et touchez Envoyer</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>APPAREIL</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Done. </source>
        <translation>Terminé. </translation>
    </message>
    <message>
        <source>DRAW</source>
        <translation>DESSINER</translation>
    </message>
    <message>
        <source>Essentials</source>
        <translation>L’essentiel</translation>
    </message>
    <message>
        <source>Granted permissions</source>
        <translation>Autorisations accordées</translation>
    </message>
    <message>
        <source>How to report better bugs?</source>
        <translation>Comment mieux signaler un bug ?</translation>
    </message>
    <message>
        <source>Inspect bug</source>
        <translation>Examiner le rapport</translation>
    </message>
    <message>
        <source>LOCALE</source>
        <translation>RÉGION</translation>
    </message>
    <message>
        <source>Mark the bug</source>
        <translation>Marquez le bug</translation>
    </message>
    <message>
        <source>NETWORK</source>
        <translation>RÉSEAU</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>NOT AVAILABLE</source>
        <translation>INDISPONIBLE</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Hors ligne</translation>
    </message>
    <message>
        <source>Optional, if you're available for a follow-up</source>
        <translation>Facultatif, si vous êtes joignable pour la suite</translation>
    </message>
    <message>
        <source>PALETTE</source>
        <translation>PALETTE</translation>
    </message>
    <message>
        <source>Quick Facts</source>
        <translation>Infos rapides</translation>
    </message>
    <message>
        <source>Quick Facts not enabled.</source>
        <translation>Les infos rapides ne sont pas activées.</translation>
    </message>
    <message>
        <source>Read here</source>
        <translation>À lire ici</translation>
    </message>
    <message>
        <source>Remove screenshot</source>
        <translation>Retirer la capture d’écran</translation>
    </message>
    <message>
        <source>Report a bug</source>
        <translation>Signaler un bug</translation>
    </message>
    <message>
        <source>Reporting disabled</source>
        <translation>Signalement désactivé</translation>
    </message>
    <message>
        <source>RESOLUTION</source>
        <translation>RÉSOLUTION</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>Capture d’écran</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>WEXEL SDK VERSION</source>
        <translation>VERSION DU SDK WEXEL</translation>
    </message>
    <message>
        <source>WiFi</source>
        <translation>Wi-Fi</translation>
    </message>
    <message>
        <source>Wrap-up</source>
        <translation>Pour finir</translation>
    </message>
    <message>
        <source>Your email</source>
        <translation>Votre e-mail</translation>
    </message>
</context>
</TS>
