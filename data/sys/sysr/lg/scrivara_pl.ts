<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About</source>
        <translation>O programie</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Licencja</translation>
    </message>
    <message>
        <source>HomePage</source>
        <translation>Strona domowa</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informacje</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&apos;About&apos; information not available!</source>
        <translation>Informacje o programie są niedostępne!</translation>
    </message>
    <message>
        <source>No information about license available!</source>
        <translation>Informacje o licencji są niedostępne!</translation>
    </message>
    <message>
        <source> About</source>
        <translation> – O programie</translation>
    </message>
    <message>
        <source>Copyright Moorfield. Comes without any warranty.</source>
        <translation>Copyright Moorfield. Program jest udostępniany bez żadnej gwarancji.</translation>
    </message>
</context>
<context>
    <name>ActiveElementDialog</name>
    <message>
        <source>Active Tag</source>
        <translation>Aktywny znacznik</translation>
    </message>
    <message>
        <source>Font family</source>
        <translation>Krój pisma</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>Rozmiar pisma</translation>
    </message>
    <message>
        <source>Text color</source>
        <translation>Kolor tekstu</translation>
    </message>
    <message>
        <source>Background color</source>
        <translation>Kolor tła</translation>
    </message>
    <message>
        <source>Description of Active Tag</source>
        <translation>Opis aktywnego znacznika</translation>
    </message>
    <message>
        <source>&amp;Author:</source>
        <translation>&amp;Autor:</translation>
    </message>
    <message>
        <source>Add date and time</source>
        <translation>Dodaj datę i godzinę</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
</context>
<context>
    <name>ActiveElementsList</name>
    <message>
        <source>Active Elements List</source>
        <translation>Lista aktywnych elementów</translation>
    </message>
    <message>
        <source>Show: </source>
        <translation>Pokaż: </translation>
    </message>
    <message>
        <source>All</source>
        <translation>Wszystkie</translation>
    </message>
    <message>
        <source>Ideas</source>
        <translation>Pomysły</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notatki</translation>
    </message>
    <message>
        <source>Questions</source>
        <translation>Pytania</translation>
    </message>
    <message>
        <source>Important</source>
        <translation>Ważne</translation>
    </message>
    <message>
        <source>Bugs</source>
        <translation>Błędy</translation>
    </message>
    <message>
        <source>only current page</source>
        <translation>tylko bieżąca strona</translation>
    </message>
    <message>
        <source>zero </source>
        <translation>zero </translation>
    </message>
    <message>
        <source>zero</source>
        <translation>zero</translation>
    </message>
</context>
<context>
    <name>ColorPickerPopup</name>
    <message>
        <source>Custom</source>
        <translation>Własny</translation>
    </message>
    <message>
        <source>More colors</source>
        <translation>Więcej kolorów</translation>
    </message>
</context>
<context>
    <name>ConfigDialog</name>
    <message>
        <source>Pen Tool</source>
        <translation>Pisak</translation>
    </message>
    <message>
        <source>Marker Tool</source>
        <translation>Zakreślacz</translation>
    </message>
    <message>
        <source>TextBox Tool</source>
        <translation>Pole tekstowe</translation>
    </message>
    <message>
        <source>Line Tool</source>
        <translation>Linia</translation>
    </message>
    <message>
        <source>Shape Tool</source>
        <translation>Kształt</translation>
    </message>
    <message>
        <source>Snapshot Tool</source>
        <translation>Migawka</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Strona</translation>
    </message>
    <message>
        <source>Syntax</source>
        <translation>Składnia</translation>
    </message>
    <message>
        <source>Printout</source>
        <translation>Wydruk</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drukuj</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Inne</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-mail</translation>
    </message>
    <message>
        <source>Kestrin 7 - Settings</source>
        <translation>Kestrin 7 - Ustawienia</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Strony</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>DocumentItem</name>
    <message>
        <source>Adjustment</source>
        <translation>Dopasowanie</translation>
    </message>
    <message>
        <source>Font of the document has been changed! Kestrin 7 is about to use an automatic procedure to adjust position and size of all annotations. Anyhow we highly recomend you to review the document, since by-hand adjustments may be still needed!</source>
        <translation>Zmieniono czcionkę dokumentu! Kestrin 7 automatycznie dopasuje położenie i rozmiar wszystkich adnotacji. Mimo to zalecamy przejrzenie dokumentu, ponieważ mogą być potrzebne ręczne poprawki!</translation>
    </message>
</context>
<context>
    <name>DontDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Okno dialogowe</translation>
    </message>
    <message>
        <source>never show this message again</source>
        <translation>nie pokazuj więcej tego komunikatu</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Tak</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>EmailSettPanel</name>
    <message>
        <source>  E-mail settings:</source>
        <translation>  Ustawienia poczty e-mail:</translation>
    </message>
    <message>
        <source>Client:</source>
        <translation>Program:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Przeglądaj...</translation>
    </message>
    <message>
        <source>Use Default</source>
        <translation>Użyj domyślnego</translation>
    </message>
    <message>
        <source>Attach current file to e-mail</source>
        <translation>Dołącz bieżący plik do wiadomości</translation>
    </message>
    <message>
        <source>  Format of attachment:</source>
        <translation>  Format załącznika:</translation>
    </message>
    <message>
        <source>OXN  (Annotated file)</source>
        <translation>OXN  (plik z adnotacjami)</translation>
    </message>
    <message>
        <source>PDF  (Portable Document Format)</source>
        <translation>PDF  (Portable Document Format)</translation>
    </message>
    <message>
        <source>PNG  (Portable Network Graphics)</source>
        <translation>PNG  (Portable Network Graphics)</translation>
    </message>
    <message>
        <source>Keep original format</source>
        <translation>Zachowaj oryginalny format</translation>
    </message>
</context>
<context>
    <name>EmailTab</name>
    <message>
        <source>Select E-mail Client</source>
        <translation>Wybierz program pocztowy</translation>
    </message>
    <message>
        <source>Executable files: (*.exe)</source>
        <translation>Pliki wykonywalne: (*.exe)</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Application Crashed</source>
        <translation>Awaria programu</translation>
    </message>
    <message>
        <source>Ooops, Kestrin 7 crashed! Please, send files &apos;sys\logs\dumped.dat&apos; and       &apos;sys\logs\log.dat&apos; to the Kestrin 7 support team. This will help to find the reason of this behavior.</source>
        <translation>Ups, Kestrin 7 uległ awarii! Prosimy o przesłanie plików &apos;sys\logs\dumped.dat&apos; i &apos;sys\logs\log.dat&apos; do zespołu pomocy Kestrin 7. Pomoże to znaleźć przyczynę problemu.</translation>
    </message>
</context>
<context>
    <name>FullscreenDialog</name>
    <message>
        <source>Standard view</source>
        <translation>Widok standardowy</translation>
    </message>
    <message>
        <source>Quit Kestrin 7</source>
        <translation>Zakończ Kestrin 7</translation>
    </message>
</context>
<context>
    <name>GroupDialog</name>
    <message>
        <source>Edit Patterns</source>
        <translation>Edycja wzorców</translation>
    </message>
    <message>
        <source>Patterns:</source>
        <translation>Wzorce:</translation>
    </message>
    <message>
        <source>New...</source>
        <translation>Nowy...</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Edytuj...</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>New pattern</source>
        <translation>Nowy wzorzec</translation>
    </message>
    <message>
        <source>New element&apos;s pattern: </source>
        <translation>Wzorzec nowego elementu: </translation>
    </message>
    <message>
        <source>Edit pattern</source>
        <translation>Edycja wzorca</translation>
    </message>
    <message>
        <source>Edit element&apos;s pattern: </source>
        <translation>Zmień wzorzec elementu: </translation>
    </message>
</context>
<context>
    <name>IoSystem</name>
    <message>
        <source>I/O Error 0x00608004</source>
        <translation>Błąd we/wy 0x00608004</translation>
    </message>
    <message>
        <source>Can&apos;t open file %1
Error code: %2</source>
        <translation>Nie można otworzyć pliku %1
Kod błędu: %2</translation>
    </message>
    <message>
        <source>I/O Error</source>
        <translation>Błąd we/wy</translation>
    </message>
    <message>
        <source>Cannot save file %1.
Error code: </source>
        <translation>Nie można zapisać pliku %1.
Kod błędu: </translation>
    </message>
    <message>
        <source>Kestrin 7 I/O Error</source>
        <translation>Błąd we/wy programu Kestrin 7</translation>
    </message>
    <message>
        <source>Cannot open file %1!</source>
        <translation>Nie można otworzyć pliku %1!</translation>
    </message>
    <message>
        <source>I/O Error 0x00608005</source>
        <translation>Błąd we/wy 0x00608005</translation>
    </message>
    <message>
        <source>Can&apos;t save file %1.
Error code: </source>
        <translation>Nie można zapisać pliku %1.
Kod błędu: </translation>
    </message>
    <message>
        <source>Kestrin 7 Parse Error</source>
        <translation>Błąd analizy pliku w Kestrin 7</translation>
    </message>
    <message>
        <source>Wrong format of OXN file %1!</source>
        <translation>Nieprawidłowy format pliku OXN %1!</translation>
    </message>
    <message>
        <source>Link to image file [%1] doesn&apos;t exist!</source>
        <translation>Wskazany plik graficzny [%1] nie istnieje!</translation>
    </message>
</context>
<context>
    <name>LineAndBracketSettPanel</name>
    <message>
        <source>  Line / Bracket settings:</source>
        <translation>  Ustawienia linii i nawiasów:</translation>
    </message>
    <message>
        <source>Line width:</source>
        <translation>Grubość linii:</translation>
    </message>
    <message>
        <source>Line style:</source>
        <translation>Styl linii:</translation>
    </message>
    <message>
        <source>Switch on antialiasing</source>
        <translation>Włącz wygładzanie krawędzi</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Pokaż zaznaczenie</translation>
    </message>
</context>
<context>
    <name>LineStyles</name>
    <message>
        <source>Solid</source>
        <translation>Ciągła</translation>
    </message>
    <message>
        <source>Dash</source>
        <translation>Kreskowa</translation>
    </message>
    <message>
        <source>Dot</source>
        <translation>Kropkowa</translation>
    </message>
    <message>
        <source>Dash Dot</source>
        <translation>Kreska-kropka</translation>
    </message>
    <message>
        <source>Dash Dot Dot</source>
        <translation>Kreska-kropka-kropka</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation>Plik</translation>
    </message>
    <message>
        <source>Recent Files</source>
        <translation>Ostatnie pliki</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Edycja</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Narzędzia</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linia</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Kształt</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>Nawias</translation>
    </message>
    <message>
        <source>Predefined Pens</source>
        <translation>Gotowe pisaki</translation>
    </message>
    <message>
        <source>Predefined Markers</source>
        <translation>Gotowe zakreślacze</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ustawienia</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Narzędzia</translation>
    </message>
    <message>
        <source>Change Language</source>
        <translation>Zmień język</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Widok</translation>
    </message>
    <message>
        <source>Toolbars</source>
        <translation>Paski narzędzi</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Dodatki</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pomoc</translation>
    </message>
    <message>
        <source>New Text File</source>
        <translation>Nowy plik tekstowy</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Otwórz...</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importuj...</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Zapisz jako...</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Zapisz...</translation>
    </message>
    <message>
        <source>Print...</source>
        <translation>Drukuj...</translation>
    </message>
    <message>
        <source>Send E-mail...</source>
        <translation>Wyślij e-mail...</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Zakończ</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Ponów</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopiuj</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Wytnij</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Wklej</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Delete All Annotations...</source>
        <translation>Usuń wszystkie adnotacje...</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>Znajdź...</translation>
    </message>
    <message>
        <source>&amp;Online Support...</source>
        <translation>&amp;Pomoc w Internecie...</translation>
    </message>
    <message>
        <source>Kestrin 7 Website...</source>
        <translation>Strona internetowa Kestrin 7...</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>O programie...</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Pisak</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Zakreślacz</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Prostokąt</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Powiększ</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Pomniejsz</translation>
    </message>
    <message>
        <source>Full Screen Mode</source>
        <translation>Tryb pełnoekranowy</translation>
    </message>
    <message>
        <source>Hide Annotations</source>
        <translation>Ukryj adnotacje</translation>
    </message>
    <message>
        <source>Export to PDF...</source>
        <translation>Eksportuj do PDF...</translation>
    </message>
    <message>
        <source>Text Mode</source>
        <translation>Tryb tekstu</translation>
    </message>
    <message>
        <source>Konfiguracja...</source>
        <translation>Konfiguracja...</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Czarny</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Czerwony</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Zielony</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Niebieski</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Żółty</translation>
    </message>
    <message>
        <source>Printout...</source>
        <translation>Wydruk...</translation>
    </message>
    <message>
        <source>Syntax Highlighting...</source>
        <translation>Podświetlanie składni...</translation>
    </message>
    <message>
        <source>Page View...</source>
        <translation>Widok strony...</translation>
    </message>
    <message>
        <source>General...</source>
        <translation>Ogólne...</translation>
    </message>
    <message>
        <source>bla</source>
        <translation>bla</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Elipsa</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Gumka</translation>
    </message>
    <message>
        <source>Snapshot Tool</source>
        <translation>Narzędzie Migawka</translation>
    </message>
    <message>
        <source>List of Active Tags</source>
        <translation>Lista aktywnych znaczników</translation>
    </message>
    <message>
        <source>Bookmarks List...</source>
        <translation>Lista zakładek...</translation>
    </message>
    <message>
        <source>Customize...</source>
        <translation>Dostosuj...</translation>
    </message>
    <message>
        <source>Empty Circles</source>
        <translation>Puste kółka</translation>
    </message>
    <message>
        <source>Simple </source>
        <translation>Zwykła </translation>
    </message>
    <message>
        <source>Filled Circles</source>
        <translation>Pełne kółka</translation>
    </message>
    <message>
        <source>Empty / Filled Circle</source>
        <translation>Puste / pełne kółko</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Strzałka</translation>
    </message>
    <message>
        <source>Double Arrow</source>
        <translation>Podwójna strzałka</translation>
    </message>
    <message>
        <source>Empty Circle / Arrow</source>
        <translation>Puste kółko / strzałka</translation>
    </message>
    <message>
        <source>Filled Circle / Arrow</source>
        <translation>Pełne kółko / strzałka</translation>
    </message>
    <message>
        <source>Rounded Rectangle</source>
        <translation>Zaokrąglony prostokąt</translation>
    </message>
    <message>
        <source>Transformation Mode</source>
        <translation>Tryb przekształcania</translation>
    </message>
    <message>
        <source>One Line</source>
        <translation>Jeden wiersz</translation>
    </message>
    <message>
        <source>Multi Line</source>
        <translation>Wiele wierszy</translation>
    </message>
    <message>
        <source>M Line</source>
        <translation>Wiersze</translation>
    </message>
    <message>
        <source>Curly</source>
        <translation>Klamrowy</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Kwadratowy</translation>
    </message>
    <message>
        <source>Text Box</source>
        <translation>Pole tekstowe</translation>
    </message>
    <message>
        <source>Show Statistics...</source>
        <translation>Pokaż statystykę...</translation>
    </message>
    <message>
        <source>Pen...</source>
        <translation>Pisak...</translation>
    </message>
    <message>
        <source>Marker...</source>
        <translation>Zakreślacz...</translation>
    </message>
    <message>
        <source>Text Box...</source>
        <translation>Pole tekstowe...</translation>
    </message>
    <message>
        <source>Line...</source>
        <translation>Linia...</translation>
    </message>
    <message>
        <source>Shape...</source>
        <translation>Kształt...</translation>
    </message>
    <message>
        <source>Snapshot...</source>
        <translation>Migawka...</translation>
    </message>
    <message>
        <source>Print Preview...</source>
        <translation>Podgląd wydruku...</translation>
    </message>
    <message>
        <source>adasd</source>
        <translation>adasd</translation>
    </message>
    <message>
        <source>Compact</source>
        <translation>Kompaktowy</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standardowy</translation>
    </message>
    <message>
        <source>Minimal</source>
        <translation>Minimalny</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>Polski</source>
        <translation>Polski</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Język systemu</translation>
    </message>
    <message>
        <source>Save Annotations...</source>
        <translation>Zapisz adnotacje...</translation>
    </message>
    <message>
        <source>E-mail...</source>
        <translation>E-mail...</translation>
    </message>
    <message>
        <source>Francais</source>
        <translation>Français</translation>
    </message>
</context>
<context>
    <name>MarkerSettPanel</name>
    <message>
        <source>Marker Settings</source>
        <translation>Ustawienia zakreślacza</translation>
    </message>
    <message>
        <source>  Marker settings:</source>
        <translation>  Ustawienia zakreślacza:</translation>
    </message>
    <message>
        <source>Line width:</source>
        <translation>Grubość linii:</translation>
    </message>
    <message>
        <source>Transparency [%]:</source>
        <translation>Przezroczystość [%]:</translation>
    </message>
    <message>
        <source>Switch on antialiasing</source>
        <translation>Włącz wygładzanie krawędzi</translation>
    </message>
    <message>
        <source>Switch on line smoothing (reduces size of output file)</source>
        <translation>Włącz wygładzanie linii (zmniejsza plik wynikowy)</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Pokaż zaznaczenie</translation>
    </message>
</context>
<context>
    <name>OtherSettPanel</name>
    <message>
        <source>  Export to:</source>
        <translation>  Eksportuj do:</translation>
    </message>
    <message>
        <source>PDF (Portable Document Format)</source>
        <translation>PDF (Portable Document Format)</translation>
    </message>
    <message>
        <source>PS (PostScript)</source>
        <translation>PS (PostScript)</translation>
    </message>
    <message>
        <source>  Other settings:</source>
        <translation>  Inne ustawienia:</translation>
    </message>
    <message>
        <source>Number of recent files:</source>
        <translation>Liczba ostatnich plików:</translation>
    </message>
    <message>
        <source>Tabs position:</source>
        <translation>Położenie kart:</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Z lewej</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Na dole</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Na górze</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Z prawej</translation>
    </message>
    <message>
        <source>Switch to fullscreen mode at startup</source>
        <translation>Uruchamiaj w trybie pełnoekranowym</translation>
    </message>
    <message>
        <source>Synchronize Annotations with text</source>
        <translation>Synchronizuj adnotacje z tekstem</translation>
    </message>
    <message>
        <source>Warn before all Annotations removal</source>
        <translation>Ostrzegaj przed usunięciem wszystkich adnotacji</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>I/O Error</source>
        <translation>Błąd we/wy</translation>
    </message>
    <message>
        <source>File %1 not found or its format is currently unsupported!</source>
        <translation>Nie znaleziono pliku %1 lub jego format nie jest obsługiwany!</translation>
    </message>
    <message>
        <source>I/O Warning</source>
        <translation>Ostrzeżenie we/wy</translation>
    </message>
    <message>
        <source>Can&apos;t save file %1</source>
        <translation>Nie można zapisać pliku %1</translation>
    </message>
    <message>
        <source>Kestrin 7</source>
        <translation>Kestrin 7</translation>
    </message>
    <message>
        <source>Document [%1] contains annotations.
Do you want to save it as an &apos;Annotated&apos; OXN file?</source>
        <translation>Dokument [%1] zawiera adnotacje.
Czy chcesz zapisać go jako plik OXN z adnotacjami?</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>Plik %1 już istnieje.
Czy chcesz go zastąpić?</translation>
    </message>
    <message>
        <source>Search Text</source>
        <translation>Wyszukiwanie tekstu</translation>
    </message>
    <message>
        <source>Document searching finished.</source>
        <translation>Zakończono przeszukiwanie dokumentu.</translation>
    </message>
    <message>
        <source>Page %1/%2</source>
        <translation>Strona %1/%2</translation>
    </message>
</context>
<context>
    <name>PageStack</name>
    <message>
        <source>Close File</source>
        <translation>Zamknij plik</translation>
    </message>
    <message>
        <source>Close All Files</source>
        <translation>Zamknij wszystkie pliki</translation>
    </message>
    <message>
        <source>Close Other Files</source>
        <translation>Zamknij pozostałe pliki</translation>
    </message>
    <message>
        <source>Kestrin 7</source>
        <translation>Kestrin 7</translation>
    </message>
    <message>
        <source>Document [%1] has been modified.
Do you want to save changes?</source>
        <translation>Dokument [%1] został zmieniony.
Czy chcesz zapisać zmiany?</translation>
    </message>
    <message>
        <source>Kestrin7 Files (*.oxn);;</source>
        <translation>Pliki Kestrin7 (*.oxn);;</translation>
    </message>
    <message>
        <source>Image Files (%1);;</source>
        <translation>Pliki graficzne (%1);;</translation>
    </message>
    <message>
        <source>All Files (*.*);;</source>
        <translation>Wszystkie pliki (*.*);;</translation>
    </message>
    <message>
        <source>Save As File</source>
        <translation>Zapisz jako plik</translation>
    </message>
</context>
<context>
    <name>PageViewSettPanel</name>
    <message>
        <source>  Default page settings:</source>
        <translation>  Domyślne ustawienia strony:</translation>
    </message>
    <message>
        <source>Show line numbers</source>
        <translation>Pokaż numery wierszy</translation>
    </message>
    <message>
        <source>Background color:</source>
        <translation>Kolor tła:</translation>
    </message>
    <message>
        <source>Text color:</source>
        <translation>Kolor tekstu:</translation>
    </message>
    <message>
        <source>Font family:</source>
        <translation>Krój pisma:</translation>
    </message>
    <message>
        <source>Font size:</source>
        <translation>Rozmiar pisma:</translation>
    </message>
    <message>
        <source>  Current page font settings:</source>
        <translation>  Czcionka bieżącej strony:</translation>
    </message>
</context>
<context>
    <name>PageViewTab</name>
    <message>
        <source>Background Color</source>
        <translation>Kolor tła</translation>
    </message>
    <message>
        <source>Font Color</source>
        <translation>Kolor czcionki</translation>
    </message>
</context>
<context>
    <name>PaperFile</name>
    <message>
        <source>The program &quot;pdftocairo&quot;, which makes PostScript files, was not found.</source>
        <translation>Nie znaleziono programu „pdftocairo”, który tworzy pliki PostScript.</translation>
    </message>
    <message>
        <source>The program &quot;pdftocairo&quot;, which makes PostScript files, did not finish its work.</source>
        <translation>Program „pdftocairo”, który tworzy pliki PostScript, nie dokończył pracy.</translation>
    </message>
    <message>
        <source>I/O Error</source>
        <translation>Błąd we/wy</translation>
    </message>
    <message>
        <source>Can&apos;t save file %1</source>
        <translation>Nie można zapisać pliku %1</translation>
    </message>
</context>
<context>
    <name>PenSettPanel</name>
    <message>
        <source>Pen Settings</source>
        <translation>Ustawienia pisaka</translation>
    </message>
    <message>
        <source>  Pen settings:</source>
        <translation>  Ustawienia pisaka:</translation>
    </message>
    <message>
        <source>Line width:</source>
        <translation>Grubość linii:</translation>
    </message>
    <message>
        <source>Transparency [%]:</source>
        <translation>Przezroczystość [%]:</translation>
    </message>
    <message>
        <source>Switch on antialiasing</source>
        <translation>Włącz wygładzanie krawędzi</translation>
    </message>
    <message>
        <source>Switch on line smoothing (reduces size of output file)</source>
        <translation>Włącz wygładzanie linii (zmniejsza plik wynikowy)</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Pokaż zaznaczenie</translation>
    </message>
</context>
<context>
    <name>PrintSettPanel</name>
    <message>
        <source>  Printout settings:</source>
        <translation>  Ustawienia wydruku:</translation>
    </message>
    <message>
        <source>Print header:</source>
        <translation>Drukuj nagłówek:</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>Nazwa pliku</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Data i godzina</translation>
    </message>
    <message>
        <source>Page numbers</source>
        <translation>Numery stron</translation>
    </message>
    <message>
        <source>Print Annotations</source>
        <translation>Drukuj adnotacje</translation>
    </message>
    <message>
        <source>Print line numbers</source>
        <translation>Drukuj numery wierszy</translation>
    </message>
</context>
<context>
    <name>QtColorPicker</name>
    <message>
        <source>Black</source>
        <translation>Czarny</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Biały</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Czerwony</translation>
    </message>
    <message>
        <source>Dark red</source>
        <translation>Ciemnoczerwony</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Zielony</translation>
    </message>
    <message>
        <source>Dark green</source>
        <translation>Ciemnozielony</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Niebieski</translation>
    </message>
    <message>
        <source>Dark blue</source>
        <translation>Ciemnoniebieski</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyjan</translation>
    </message>
    <message>
        <source>Dark cyan</source>
        <translation>Ciemny cyjan</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>Magenta</translation>
    </message>
    <message>
        <source>Dark magenta</source>
        <translation>Ciemna magenta</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Żółty</translation>
    </message>
    <message>
        <source>Dark yellow</source>
        <translation>Ciemnożółty</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Szary</translation>
    </message>
    <message>
        <source>Dark gray</source>
        <translation>Ciemnoszary</translation>
    </message>
    <message>
        <source>Light gray</source>
        <translation>Jasnoszary</translation>
    </message>
</context>
<context>
    <name>QtToolBarDialog</name>
    <message>
        <source>Customize Toolbars</source>
        <translation>Dostosuj paski narzędzi</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Akcje</translation>
    </message>
    <message>
        <source>Toolbars</source>
        <translation>Paski narzędzi</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nowy</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Zmień nazwę</translation>
    </message>
    <message>
        <source>Current Toolbar Actions</source>
        <translation>Akcje bieżącego paska narzędzi</translation>
    </message>
    <message>
        <source>Add to the toolbar</source>
        <translation>Dodaj do paska narzędzi</translation>
    </message>
    <message>
        <source>Take out of the toolbar</source>
        <translation>Usuń z paska narzędzi</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>W górę</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>W dół</translation>
    </message>
    <message>
        <source>Restore All</source>
        <translation>Przywróć wszystko</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Zastosuj</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>&lt; S E P A R A T O R &gt;</source>
        <translation>&lt; S E P A R A T O R &gt;</translation>
    </message>
    <message>
        <source>Custom Toolbar</source>
        <translation>Własny pasek narzędzi</translation>
    </message>
</context>
<context>
    <name>ScreenShotTool</name>
    <message>
        <source>Image Files </source>
        <translation>Pliki graficzne </translation>
    </message>
    <message>
        <source>Portable Document Format (*.pdf);;</source>
        <translation>Portable Document Format (*.pdf);;</translation>
    </message>
    <message>
        <source>Postscript (*.ps);;</source>
        <translation>Postscript (*.ps);;</translation>
    </message>
    <message>
        <source>(w: %1, h: %2)</source>
        <translation>(szer.: %1, wys.: %2)</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informacja</translation>
    </message>
    <message>
        <source>Selected area has been copied to the clipboard!</source>
        <translation>Zaznaczony obszar został skopiowany do schowka!</translation>
    </message>
    <message>
        <source>Save As File</source>
        <translation>Zapisz jako plik</translation>
    </message>
</context>
<context>
    <name>ScreenshotSettPanel</name>
    <message>
        <source>  Snapshot tool settings:</source>
        <translation>  Ustawienia narzędzia Migawka:</translation>
    </message>
    <message>
        <source>Copy captured view to clipboard</source>
        <translation>Kopiuj przechwycony widok do schowka</translation>
    </message>
    <message>
        <source>Save captured view to file</source>
        <translation>Zapisz przechwycony widok w pliku</translation>
    </message>
    <message>
        <source>Send captured view via e-mail</source>
        <translation>Wyślij przechwycony widok e-mailem</translation>
    </message>
    <message>
        <source>Use Snapshot tool once (switch to previous tool)</source>
        <translation>Użyj Migawki raz (wróć do poprzedniego narzędzia)</translation>
    </message>
    <message>
        <source>Inform about captured view in clipboard</source>
        <translation>Informuj o przechwyconym widoku w schowku</translation>
    </message>
</context>
<context>
    <name>Scrivara</name>
    <message>
        <source>Line Color</source>
        <translation>Kolor linii</translation>
    </message>
    <message>
        <source>Fill Color</source>
        <translation>Kolor wypełnienia</translation>
    </message>
    <message>
        <source>Text Files (*.txt)</source>
        <translation>Pliki tekstowe (*.txt)</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Otwórz plik</translation>
    </message>
    <message>
        <source>Image Files (</source>
        <translation>Pliki graficzne (</translation>
    </message>
    <message>
        <source>Kestrin 7 Files (*.oxn);;</source>
        <translation>Pliki Kestrin 7 (*.oxn);;</translation>
    </message>
    <message>
        <source>Text Files (*.txt);;</source>
        <translation>Pliki tekstowe (*.txt);;</translation>
    </message>
    <message>
        <source>C/C++ Files (*.c *.c++ *.cc *.cpp *.h);;</source>
        <translation>Pliki C/C++ (*.c *.c++ *.cc *.cpp *.h);;</translation>
    </message>
    <message>
        <source>C# Files (*.cs);;</source>
        <translation>Pliki C# (*.cs);;</translation>
    </message>
    <message>
        <source>Fortran Files (*.f);;</source>
        <translation>Pliki Fortran (*.f);;</translation>
    </message>
    <message>
        <source>Java Files (*.java);;</source>
        <translation>Pliki Java (*.java);;</translation>
    </message>
    <message>
        <source>Perl Files (*.pl);;</source>
        <translation>Pliki Perl (*.pl);;</translation>
    </message>
    <message>
        <source>PHP Files (*.php *.phps);;</source>
        <translation>Pliki PHP (*.php *.phps);;</translation>
    </message>
    <message>
        <source>Python Files (*.py);;</source>
        <translation>Pliki Python (*.py);;</translation>
    </message>
    <message>
        <source>Ruby Files (*.rb);;</source>
        <translation>Pliki Ruby (*.rb);;</translation>
    </message>
    <message>
        <source>All Files (*.*);;</source>
        <translation>Wszystkie pliki (*.*);;</translation>
    </message>
    <message>
        <source>&amp;%1 %2</source>
        <translation>&amp;%1 %2</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Plik</translation>
    </message>
    <message>
        <source>Recent Files</source>
        <translation>Ostatnie pliki</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Edycja</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Narzędzia</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linia</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Kształt</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>Nawias</translation>
    </message>
    <message>
        <source>Predefined Pens</source>
        <translation>Gotowe pisaki</translation>
    </message>
    <message>
        <source>Predefined Markers</source>
        <translation>Gotowe zakreślacze</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ustawienia</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Narzędzia</translation>
    </message>
    <message>
        <source>Change Language...</source>
        <translation>Zmień język...</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Widok</translation>
    </message>
    <message>
        <source>Toolbars</source>
        <translation>Paski narzędzi</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Dodatki</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pomoc</translation>
    </message>
    <message>
        <source>New Text File</source>
        <translation>Nowy plik tekstowy</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Otwórz...</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Zapisz...</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Zapisz jako...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Export to PDF...</source>
        <translation>Eksportuj do PDF...</translation>
    </message>
    <message>
        <source>Print Preview...</source>
        <translation>Podgląd wydruku...</translation>
    </message>
    <message>
        <source>Print...</source>
        <translation>Drukuj...</translation>
    </message>
    <message>
        <source>Send E-mail...</source>
        <translation>Wyślij e-mail...</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Zakończ</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Ponów</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Wytnij</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopiuj</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Wklej</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>Znajdź...</translation>
    </message>
    <message>
        <source>Delete All Annotations...</source>
        <translation>Usuń wszystkie adnotacje...</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Pisak</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Zakreślacz</translation>
    </message>
    <message>
        <source>Text Box</source>
        <translation>Pole tekstowe</translation>
    </message>
    <message>
        <source>Simple</source>
        <translation>Zwykła</translation>
    </message>
    <message>
        <source>Empty Circles</source>
        <translation>Puste kółka</translation>
    </message>
    <message>
        <source>Filled Circles</source>
        <translation>Pełne kółka</translation>
    </message>
    <message>
        <source>Empty / Filled Circle</source>
        <translation>Puste / pełne kółko</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Strzałka</translation>
    </message>
    <message>
        <source>Double Arrow</source>
        <translation>Podwójna strzałka</translation>
    </message>
    <message>
        <source>Empty Circle / Arrow</source>
        <translation>Puste kółko / strzałka</translation>
    </message>
    <message>
        <source>Filled Circle / Arrow</source>
        <translation>Pełne kółko / strzałka</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Prostokąt</translation>
    </message>
    <message>
        <source>Rounded Rectangle</source>
        <translation>Zaokrąglony prostokąt</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Elipsa</translation>
    </message>
    <message>
        <source>Curly</source>
        <translation>Klamrowy</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Kwadratowy</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Gumka</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Czarny</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Czerwony</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Zielony</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Niebieski</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Żółty</translation>
    </message>
    <message>
        <source>Text Mode</source>
        <translation>Tryb tekstu</translation>
    </message>
    <message>
        <source>Transformation Mode</source>
        <translation>Tryb przekształcania</translation>
    </message>
    <message>
        <source>Pen...</source>
        <translation>Pisak...</translation>
    </message>
    <message>
        <source>Marker...</source>
        <translation>Zakreślacz...</translation>
    </message>
    <message>
        <source>Text Box...</source>
        <translation>Pole tekstowe...</translation>
    </message>
    <message>
        <source>Line...</source>
        <translation>Linia...</translation>
    </message>
    <message>
        <source>Shape...</source>
        <translation>Kształt...</translation>
    </message>
    <message>
        <source>Snapshot...</source>
        <translation>Migawka...</translation>
    </message>
    <message>
        <source>Page View...</source>
        <translation>Widok strony...</translation>
    </message>
    <message>
        <source>Syntax Highlighting...</source>
        <translation>Podświetlanie składni...</translation>
    </message>
    <message>
        <source>Printout...</source>
        <translation>Wydruk...</translation>
    </message>
    <message>
        <source>E-mail...</source>
        <translation>E-mail...</translation>
    </message>
    <message>
        <source>General...</source>
        <translation>Ogólne...</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Język systemu</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>Polski</source>
        <translation>Polski</translation>
    </message>
    <message>
        <source>Francais</source>
        <translation>Français</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Powiększ</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Pomniejsz</translation>
    </message>
    <message>
        <source>Full Screen Mode</source>
        <translation>Tryb pełnoekranowy</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standardowy</translation>
    </message>
    <message>
        <source>Compact</source>
        <translation>Kompaktowy</translation>
    </message>
    <message>
        <source>Minimal</source>
        <translation>Minimalny</translation>
    </message>
    <message>
        <source>Hide Annotations</source>
        <translation>Ukryj adnotacje</translation>
    </message>
    <message>
        <source>Customize Toolbars...</source>
        <translation>Dostosuj paski narzędzi...</translation>
    </message>
    <message>
        <source>Snapshot Tool</source>
        <translation>Narzędzie Migawka</translation>
    </message>
    <message>
        <source>Online Support...</source>
        <translation>Pomoc w Internecie...</translation>
    </message>
    <message>
        <source>Kestrin 7 Website...</source>
        <translation>Strona internetowa Kestrin 7...</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>O programie...</translation>
    </message>
    <message>
        <source>List of Active Tags</source>
        <translation>Lista aktywnych znaczników</translation>
    </message>
    <message>
        <source>Show Statistics...</source>
        <translation>Pokaż statystykę...</translation>
    </message>
    <message>
        <source>Simple Line</source>
        <translation>Zwykła linia</translation>
    </message>
    <message>
        <source>Curly Bracket</source>
        <translation>Nawias klamrowy</translation>
    </message>
    <message>
        <source>Square Bracket</source>
        <translation>Nawias kwadratowy</translation>
    </message>
    <message>
        <source>Thin Black Pen</source>
        <translation>Cienki czarny pisak</translation>
    </message>
    <message>
        <source>Thin Red Pen</source>
        <translation>Cienki czerwony pisak</translation>
    </message>
    <message>
        <source>Thin Green Pen</source>
        <translation>Cienki zielony pisak</translation>
    </message>
    <message>
        <source>Thin Blue Pen</source>
        <translation>Cienki niebieski pisak</translation>
    </message>
    <message>
        <source>Medium Black Pen</source>
        <translation>Średni czarny pisak</translation>
    </message>
    <message>
        <source>Medium Red Pen</source>
        <translation>Średni czerwony pisak</translation>
    </message>
    <message>
        <source>Medium Green Pen</source>
        <translation>Średni zielony pisak</translation>
    </message>
    <message>
        <source>Medium Blue Pen</source>
        <translation>Średni niebieski pisak</translation>
    </message>
    <message>
        <source>Red Marker</source>
        <translation>Czerwony zakreślacz</translation>
    </message>
    <message>
        <source>Green Marker</source>
        <translation>Zielony zakreślacz</translation>
    </message>
    <message>
        <source>Blue Marker</source>
        <translation>Niebieski zakreślacz</translation>
    </message>
    <message>
        <source>Yellow Marker</source>
        <translation>Żółty zakreślacz</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Tryb</translation>
    </message>
    <message>
        <source>Basic Tools</source>
        <translation>Podstawowe narzędzia</translation>
    </message>
    <message>
        <source>Shapes</source>
        <translation>Kształty</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>Nawiasy</translation>
    </message>
    <message>
        <source>Pens and Markers</source>
        <translation>Pisaki i zakreślacze</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Znajdź</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Poprzedni</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Następny</translation>
    </message>
    <message>
        <source>Case Sensitive</source>
        <translation>Uwzględniaj wielkość liter</translation>
    </message>
    <message>
        <source>Whole Words</source>
        <translation>Całe wyrazy</translation>
    </message>
    <message>
        <source>Actual Page Size</source>
        <translation>Bieżący rozmiar strony</translation>
    </message>
    <message>
        <source>Unlock Document</source>
        <translation>Odblokuj dokument</translation>
    </message>
    <message>
        <source>Highlight Syntax</source>
        <translation>Podświetl składnię</translation>
    </message>
    <message>
        <source>StdTools</source>
        <translation>StdTools</translation>
    </message>
    <message>
        <source>        </source>
        <translation>        </translation>
    </message>
    <message>
        <source>MOD</source>
        <translation>MOD</translation>
    </message>
    <message>
        <source>Unlock document</source>
        <translation>Odblokuj dokument</translation>
    </message>
    <message>
        <source>Highlight syntax</source>
        <translation>Podświetl składnię</translation>
    </message>
    <message>
        <source>Idea</source>
        <translation>Pomysł</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notatka</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Pytanie</translation>
    </message>
    <message>
        <source>Important</source>
        <translation>Ważne</translation>
    </message>
    <message>
        <source>Bug</source>
        <translation>Błąd</translation>
    </message>
    <message>
        <source>Add Active Tag</source>
        <translation>Dodaj aktywny znacznik</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Ostrzeżenie</translation>
    </message>
    <message>
        <source>All annotations will be removed! There is no way to revert the operation. 
Do you want to continue?</source>
        <translation>Wszystkie adnotacje zostaną usunięte! Tej operacji nie można cofnąć. 
Czy chcesz kontynuować?</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Eksportuj do PDF</translation>
    </message>
    <message>
        <source>Export to PS</source>
        <translation>Eksportuj do PS</translation>
    </message>
    <message>
        <source>I/O Warning</source>
        <translation>Ostrzeżenie we/wy</translation>
    </message>
    <message>
        <source>Can&apos;t save file %1</source>
        <translation>Nie można zapisać pliku %1</translation>
    </message>
    <message>
        <source>Kestrin 7 couldn&apos;t detect default e-mail client on your system.
          Please, setup path using: Settings -&gt; E-mail</source>
        <translation>Kestrin 7 nie wykrył domyślnego programu pocztowego w systemie.
          Podaj jego ścieżkę: Ustawienia -&gt; E-mail</translation>
    </message>
</context>
<context>
    <name>ShapeSettPanel</name>
    <message>
        <source>  Rectangle / Ellipse settings:</source>
        <translation>  Ustawienia prostokąta i elipsy:</translation>
    </message>
    <message>
        <source>Line width:</source>
        <translation>Grubość linii:</translation>
    </message>
    <message>
        <source>Line style:</source>
        <translation>Styl linii:</translation>
    </message>
    <message>
        <source>Transparency [%]:</source>
        <translation>Przezroczystość [%]:</translation>
    </message>
    <message>
        <source>Switch on antialiasing</source>
        <translation>Włącz wygładzanie krawędzi</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Pokaż zaznaczenie</translation>
    </message>
</context>
<context>
    <name>StatisticsChart</name>
    <message>
        <source>comments</source>
        <translation>komentarze</translation>
    </message>
    <message>
        <source>code</source>
        <translation>kod</translation>
    </message>
    <message>
        <source>empty lines</source>
        <translation>puste wiersze</translation>
    </message>
    <message>
        <source>Total # of lines: %1</source>
        <translation>Liczba wierszy: %1</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>StatisticsDialog</name>
    <message>
        <source>Zettelwerk - Source Code Statistics</source>
        <translation>Zettelwerk - Statystyka kodu źródłowego</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drukuj</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Eksportuj do PDF</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Plik</translation>
    </message>
    <message>
        <source>Tot Lines</source>
        <translation>Wiersze</translation>
    </message>
    <message>
        <source>Cod Lines</source>
        <translation>Kod</translation>
    </message>
    <message>
        <source>Com Lines</source>
        <translation>Komentarze</translation>
    </message>
    <message>
        <source>Emp Lines</source>
        <translation>Puste</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Pliki</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>Wykres</translation>
    </message>
</context>
<context>
    <name>SyntaxFile</name>
    <message>
        <source>Warning</source>
        <translation>Ostrzeżenie</translation>
    </message>
    <message>
        <source>Syntax file for .%1 doesn&apos;t exist!</source>
        <translation>Plik składni dla .%1 nie istnieje!</translation>
    </message>
    <message>
        <source>Can&apos;t open syntax file: %1 !</source>
        <translation>Nie można otworzyć pliku składni: %1 !</translation>
    </message>
    <message>
        <source>Format of syntax file &apos;%1&apos; is wrong!</source>
        <translation>Format pliku składni „%1” jest nieprawidłowy!</translation>
    </message>
</context>
<context>
    <name>SyntaxSettPanel</name>
    <message>
        <source>  Syntax highlighting:</source>
        <translation>  Podświetlanie składni:</translation>
    </message>
    <message>
        <source>File extension:</source>
        <translation>Rozszerzenie pliku:</translation>
    </message>
    <message>
        <source>New...</source>
        <translation>Nowy...</translation>
    </message>
    <message>
        <source>Highlighted elements:</source>
        <translation>Podświetlane elementy:</translation>
    </message>
    <message>
        <source>Keywords</source>
        <translation>Słowa kluczowe</translation>
    </message>
    <message>
        <source>Types</source>
        <translation>Typy</translation>
    </message>
    <message>
        <source>Comments</source>
        <translation>Komentarze</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Tekst</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Edytuj...</translation>
    </message>
    <message>
        <source>Font...</source>
        <translation>Czcionka...</translation>
    </message>
    <message>
        <source>Color...</source>
        <translation>Kolor...</translation>
    </message>
    <message>
        <source>Background Color...</source>
        <translation>Kolor tła...</translation>
    </message>
    <message>
        <source>Highlight syntax by default</source>
        <translation>Domyślnie podświetlaj składnię</translation>
    </message>
</context>
<context>
    <name>SyntaxTab</name>
    <message>
        <source>Warning</source>
        <translation>Ostrzeżenie</translation>
    </message>
    <message>
        <source>Can&apos;t save syntax file: %1 !</source>
        <translation>Nie można zapisać pliku składni: %1 !</translation>
    </message>
    <message>
        <source>Register extension</source>
        <translation>Zarejestruj rozszerzenie</translation>
    </message>
    <message>
        <source>New file extension: </source>
        <translation>Nowe rozszerzenie pliku: </translation>
    </message>
    <message>
        <source>This file extension is already registered!</source>
        <translation>To rozszerzenie pliku jest już zarejestrowane!</translation>
    </message>
</context>
<context>
    <name>TextBoxSettPanel</name>
    <message>
        <source>TextBox Settings</source>
        <translation>Ustawienia pola tekstowego</translation>
    </message>
    <message>
        <source>  TextBox settings:</source>
        <translation>  Ustawienia pola tekstowego:</translation>
    </message>
    <message>
        <source>Font family:</source>
        <translation>Krój pisma:</translation>
    </message>
    <message>
        <source>Font size:</source>
        <translation>Rozmiar pisma:</translation>
    </message>
    <message>
        <source>Use TextBox tool once (switch to previous tool)</source>
        <translation>Użyj pola tekstowego raz (wróć do poprzedniego narzędzia)</translation>
    </message>
</context>
<context>
    <name>TextBoxTool</name>
    <message>
        <source>Enter Text Here</source>
        <translation>Wpisz tutaj tekst</translation>
    </message>
</context>
<context>
    <name>ViewModeDialog</name>
    <message>
        <source>Standard View</source>
        <translation>Widok standardowy</translation>
    </message>
</context>
</TS>
