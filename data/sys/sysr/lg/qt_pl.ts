<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>Print Device Input Slot</name>
    <message>
        <source>Automatic</source>
        <translation>Automatyczny</translation>
    </message>
</context>
<context>
    <name>Print Device Output Bin</name>
    <message>
        <source>Automatic</source>
        <translation>Automatyczny</translation>
    </message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>Drive</source>
        <translation>Napęd</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Skrót</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Nieznany</translation>
    </message>
</context>
<context>
    <name>QCupsPrinterSupport</name>
    <message>
        <source>Authentication Needed</source>
        <translation>Wymagane uwierzytelnienie</translation>
    </message>
    <message>
        <source>Authentication needed to use %1 on %2.</source>
        <translation>Użycie %1 na %2 wymaga uwierzytelnienia.</translation>
    </message>
    <message>
        <source>Authentication needed to use %1.</source>
        <translation>Użycie %1 wymaga uwierzytelnienia.</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Hasło:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nazwa użytkownika:</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Zapisz</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Zapisz jako</translation>
    </message>
</context>
<context>
    <name>QGnomeTheme</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Zapisz</translation>
    </message>
</context>
<context>
    <name>QMessageBox</name>
    <message>
        <source>Help</source>
        <translation>Pomoc</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>Discard</source>
        <translation>Nie zapisuj</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Zapisz wszystko</translation>
    </message>
</context>
<context>
    <name>QPrintDialog</name>
    <message>
        <source>%1 does not follow the correct syntax. Please use &apos;,&apos; to separate ranges and pages, &apos;-&apos; to define ranges and make sure ranges do not intersect with each other.</source>
        <translation>Wpis %1 jest nieprawidłowy. Zakresy i strony należy oddzielać znakiem „,”, zakresy podawać ze znakiem „-”, a zakresy nie mogą się pokrywać.</translation>
    </message>
    <message>
        <source>Duplex Settings Conflicts</source>
        <translation>Konflikt ustawień druku dwustronnego</translation>
    </message>
    <message>
        <source>Invalid Pages Definition</source>
        <translation>Nieprawidłowy zakres stron</translation>
    </message>
    <message>
        <source>There are conflicts in duplex settings. Do you want to fix them?</source>
        <translation>Ustawienia druku dwustronnego są sprzeczne. Czy chcesz je poprawić?</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesDialog</name>
    <message>
        <source>Advanced Option Conflicts</source>
        <translation>Konflikt opcji zaawansowanych</translation>
    </message>
    <message>
        <source>Page Setup Conflicts</source>
        <translation>Konflikt ustawień strony</translation>
    </message>
    <message>
        <source>There are conflicts in page setup options. Do you want to fix them?</source>
        <translation>Opcje ustawień strony są sprzeczne. Czy chcesz je poprawić?</translation>
    </message>
    <message>
        <source>There are conflicts in some advanced options. Do you want to fix them?</source>
        <translation>Niektóre opcje zaawansowane są sprzeczne. Czy chcesz je poprawić?</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesWidget</name>
    <message>
        <source>Advanced</source>
        <translation>Zaawansowane</translation>
    </message>
    <message>
        <source>There are conflicts in some options. Please fix them.</source>
        <translation>Niektóre opcje są sprzeczne. Należy je poprawić.</translation>
    </message>
</context>
<context>
    <name>QPrintSettingsOutput</name>
    <message>
        <source>Double Sided Printing</source>
        <translation>Druk dwustronny</translation>
    </message>
    <message>
        <source>Long side binding</source>
        <translation>Wzdłuż długiego boku</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Wyłączony</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Strony</translation>
    </message>
    <message>
        <source>Short side binding</source>
        <translation>Wzdłuż krótkiego boku</translation>
    </message>
    <message>
        <source>Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.</source>
        <translation>Podaj strony lub zakresy oddzielone przecinkami. Zakres to dwie liczby połączone łącznikiem, np. 3,5-7,9 drukuje strony 3, 5, 6, 7 i 9.</translation>
    </message>
</context>
</TS>
