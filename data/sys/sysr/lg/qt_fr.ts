<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Print Device Input Slot</name>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
</context>
<context>
    <name>Print Device Output Bin</name>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>Drive</source>
        <translation>Disque</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Raccourci</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Inconnu</translation>
    </message>
</context>
<context>
    <name>QCupsPrinterSupport</name>
    <message>
        <source>Authentication Needed</source>
        <translation>Authentification requise</translation>
    </message>
    <message>
        <source>Authentication needed to use %1 on %2.</source>
        <translation>L’utilisation de %1 sur %2 nécessite une authentification.</translation>
    </message>
    <message>
        <source>Authentication needed to use %1.</source>
        <translation>L’utilisation de %1 nécessite une authentification.</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Mot de passe&#xa0;:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nom d’utilisateur&#xa0;:</translation>
    </message>
</context>
<context>
    <name>QErrorMessage</name>
    <message>
        <source>Critical Error:</source>
        <translation>Erreur critique&#xa0;:</translation>
    </message>
    <message>
        <source>Information:</source>
        <translation>Information&#xa0;:</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>Discard</source>
        <translation>Ne pas enregistrer</translation>
    </message>
</context>
<context>
    <name>QPrintDialog</name>
    <message>
        <source>%1 does not follow the correct syntax. Please use &apos;,&apos; to separate ranges and pages, &apos;-&apos; to define ranges and make sure ranges do not intersect with each other.</source>
        <translation>%1 n’est pas valide. Séparez les intervalles et les pages par «&#xa0;,&#xa0;», indiquez les intervalles avec «&#xa0;-&#xa0;» et assurez-vous qu’ils ne se recoupent pas.</translation>
    </message>
    <message>
        <source>Duplex Settings Conflicts</source>
        <translation>Conflit de paramètres recto verso</translation>
    </message>
    <message>
        <source>Invalid Pages Definition</source>
        <translation>Définition de pages non valide</translation>
    </message>
    <message>
        <source>There are conflicts in duplex settings. Do you want to fix them?</source>
        <translation>Les paramètres recto verso sont en conflit. Voulez-vous les corriger&#xa0;?</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesDialog</name>
    <message>
        <source>Advanced Option Conflicts</source>
        <translation>Conflit d’options avancées</translation>
    </message>
    <message>
        <source>Page Setup Conflicts</source>
        <translation>Conflit de mise en page</translation>
    </message>
    <message>
        <source>Printer Properties</source>
        <translation>Propriétés de l’imprimante</translation>
    </message>
    <message>
        <source>There are conflicts in page setup options. Do you want to fix them?</source>
        <translation>Les options de mise en page sont en conflit. Voulez-vous les corriger&#xa0;?</translation>
    </message>
    <message>
        <source>There are conflicts in some advanced options. Do you want to fix them?</source>
        <translation>Certaines options avancées sont en conflit. Voulez-vous les corriger&#xa0;?</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesWidget</name>
    <message>
        <source>Advanced</source>
        <translation>Avancé</translation>
    </message>
    <message>
        <source>There are conflicts in some options. Please fix them.</source>
        <translation>Certaines options sont en conflit. Veuillez les corriger.</translation>
    </message>
</context>
<context>
    <name>QPrintSettingsOutput</name>
    <message>
        <source>Double Sided Printing</source>
        <translation>Impression recto verso</translation>
    </message>
    <message>
        <source>Long side binding</source>
        <translation>Reliure côté long</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Désactivée</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>Short side binding</source>
        <translation>Reliure côté court</translation>
    </message>
    <message>
        <source>Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.</source>
        <translation>Indiquez des pages ou des intervalles séparés par des virgules. Un intervalle se compose de deux nombres séparés par un tiret. Par exemple, 3,5-7,9 imprime les pages 3, 5, 6, 7 et 9.</translation>
    </message>
</context>
</TS>
