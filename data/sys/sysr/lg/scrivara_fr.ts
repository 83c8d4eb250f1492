<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Licence</translation>
    </message>
    <message>
        <source>HomePage</source>
        <translation>Site Web</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informations</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&apos;About&apos; information not available!</source>
        <translation>Les informations «&#xa0;À propos&#xa0;» ne sont pas disponibles&#xa0;!</translation>
    </message>
    <message>
        <source>No information about license available!</source>
        <translation>Aucune information sur la licence n’est disponible&#xa0;!</translation>
    </message>
    <message>
        <source> About</source>
        <translation> – À propos</translation>
    </message>
    <message>
        <source>Copyright Moorfield. Comes without any warranty.</source>
        <translation>Copyright Moorfield. Fourni sans aucune garantie.</translation>
    </message>
</context>
<context>
    <name>ActiveElementDialog</name>
    <message>
        <source>Active Tag</source>
        <translation>Étiquette active</translation>
    </message>
    <message>
        <source>Font family</source>
        <translation>Police</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>Taille de police</translation>
    </message>
    <message>
        <source>Text color</source>
        <translation>Couleur du texte</translation>
    </message>
    <message>
        <source>Background color</source>
        <translation>Couleur du fond</translation>
    </message>
    <message>
        <source>Description of Active Tag</source>
        <translation>Description de l’étiquette active</translation>
    </message>
    <message>
        <source>&amp;Author:</source>
        <translation>&amp;Auteur :</translation>
    </message>
    <message>
        <source>Add date and time</source>
        <translation>Ajouter la date et l’heure</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>ActiveElementsList</name>
    <message>
        <source>Active Elements List</source>
        <translation>Liste des éléments actifs</translation>
    </message>
    <message>
        <source>Show: </source>
        <translation>Afficher : </translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tout</translation>
    </message>
    <message>
        <source>Ideas</source>
        <translation>Idées</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message>
        <source>Questions</source>
        <translation>Questions</translation>
    </message>
    <message>
        <source>Important</source>
        <translation>Important</translation>
    </message>
    <message>
        <source>Bugs</source>
        <translation>Bogues</translation>
    </message>
    <message>
        <source>only current page</source>
        <translation>page courante seulement</translation>
    </message>
    <message>
        <source>zero </source>
        <translation>zéro </translation>
    </message>
    <message>
        <source>zero</source>
        <translation>zéro</translation>
    </message>
</context>
<context>
    <name>ColorPickerPopup</name>
    <message>
        <source>Custom</source>
        <translation>Personnalisée</translation>
    </message>
    <message>
        <source>More colors</source>
        <translation>Autres couleurs</translation>
    </message>
</context>
<context>
    <name>ConfigDialog</name>
    <message>
        <source>Pen Tool</source>
        <translation>Outil Stylo</translation>
    </message>
    <message>
        <source>Marker Tool</source>
        <translation>Outil Surligneur</translation>
    </message>
    <message>
        <source>TextBox Tool</source>
        <translation>Outil Zone de texte</translation>
    </message>
    <message>
        <source>Line Tool</source>
        <translation>Outil Ligne</translation>
    </message>
    <message>
        <source>Shape Tool</source>
        <translation>Outil Forme</translation>
    </message>
    <message>
        <source>Snapshot Tool</source>
        <translation>Outil Instantané</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>Syntax</source>
        <translation>Syntaxe</translation>
    </message>
    <message>
        <source>Printout</source>
        <translation>Impression</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimer</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Autres</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-mail</translation>
    </message>
    <message>
        <source>Kestrin 7 - Settings</source>
        <translation>Kestrin 7 - Paramètres</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
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
        <translation>Ajustement</translation>
    </message>
    <message>
        <source>Font of the document has been changed! Kestrin 7 is about to use an automatic procedure to adjust position and size of all annotations. Anyhow we highly recomend you to review the document, since by-hand adjustments may be still needed!</source>
        <translation>La police du document a été modifiée&#xa0;! Kestrin 7 va ajuster automatiquement la position et la taille de toutes les annotations. Nous vous recommandons toutefois de relire le document, car des ajustements manuels peuvent rester nécessaires&#xa0;!</translation>
    </message>
</context>
<context>
    <name>DontDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Boîte de dialogue</translation>
    </message>
    <message>
        <source>never show this message again</source>
        <translation>ne plus afficher ce message</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
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
        <translation>  Paramètres de messagerie :</translation>
    </message>
    <message>
        <source>Client:</source>
        <translation>Client :</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Parcourir...</translation>
    </message>
    <message>
        <source>Use Default</source>
        <translation>Par défaut</translation>
    </message>
    <message>
        <source>Attach current file to e-mail</source>
        <translation>Joindre le fichier courant au message</translation>
    </message>
    <message>
        <source>  Format of attachment:</source>
        <translation>  Format de la pièce jointe :</translation>
    </message>
    <message>
        <source>OXN  (Annotated file)</source>
        <translation>OXN  (fichier annoté)</translation>
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
        <translation>Conserver le format d’origine</translation>
    </message>
</context>
<context>
    <name>EmailTab</name>
    <message>
        <source>Select E-mail Client</source>
        <translation>Choisir le client de messagerie</translation>
    </message>
    <message>
        <source>Executable files: (*.exe)</source>
        <translation>Fichiers exécutables : (*.exe)</translation>
    </message>
</context>
<context>
    <name>EventLog</name>
    <message>
        <source>Application Crashed</source>
        <translation>L’application a cessé de fonctionner</translation>
    </message>
    <message>
        <source>Ooops, Kestrin 7 crashed! Please, send files &apos;sys\logs\dumped.dat&apos; and       &apos;sys\logs\log.dat&apos; to the Kestrin 7 support team. This will help to find the reason of this behavior.</source>
        <translation>Oups, Kestrin 7 s’est arrêté brutalement&#xa0;! Veuillez envoyer les fichiers «&#xa0;sys\logs\dumped.dat&#xa0;» et «&#xa0;sys\logs\log.dat&#xa0;» à l’équipe d’assistance de Kestrin 7. Cela aidera à trouver la cause du problème.</translation>
    </message>
</context>
<context>
    <name>FullscreenDialog</name>
    <message>
        <source>Standard view</source>
        <translation>Affichage standard</translation>
    </message>
    <message>
        <source>Quit Kestrin 7</source>
        <translation>Quitter Kestrin 7</translation>
    </message>
</context>
<context>
    <name>GroupDialog</name>
    <message>
        <source>Edit Patterns</source>
        <translation>Modifier les motifs</translation>
    </message>
    <message>
        <source>Patterns:</source>
        <translation>Motifs :</translation>
    </message>
    <message>
        <source>New...</source>
        <translation>Nouveau...</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Modifier...</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>New pattern</source>
        <translation>Nouveau motif</translation>
    </message>
    <message>
        <source>New element&apos;s pattern: </source>
        <translation>Motif du nouvel élément : </translation>
    </message>
    <message>
        <source>Edit pattern</source>
        <translation>Modifier le motif</translation>
    </message>
    <message>
        <source>Edit element&apos;s pattern: </source>
        <translation>Modifier le motif de l’élément : </translation>
    </message>
</context>
<context>
    <name>IoSystem</name>
    <message>
        <source>I/O Error 0x00608004</source>
        <translation>Erreur d’E/S 0x00608004</translation>
    </message>
    <message>
        <source>Can&apos;t open file %1
Error code: %2</source>
        <translation>Impossible d’ouvrir le fichier %1
Code d’erreur&#xa0;: %2</translation>
    </message>
    <message>
        <source>I/O Error</source>
        <translation>Erreur d’E/S</translation>
    </message>
    <message>
        <source>Cannot save file %1.
Error code: </source>
        <translation>Impossible d’enregistrer le fichier %1.
Code d’erreur&#xa0;: </translation>
    </message>
    <message>
        <source>Kestrin 7 I/O Error</source>
        <translation>Erreur d’E/S de Kestrin 7</translation>
    </message>
    <message>
        <source>Cannot open file %1!</source>
        <translation>Impossible d’ouvrir le fichier %1&#xa0;!</translation>
    </message>
    <message>
        <source>I/O Error 0x00608005</source>
        <translation>Erreur d’E/S 0x00608005</translation>
    </message>
    <message>
        <source>Can&apos;t save file %1.
Error code: </source>
        <translation>Impossible d’enregistrer le fichier %1.
Code d’erreur&#xa0;: </translation>
    </message>
    <message>
        <source>Kestrin 7 Parse Error</source>
        <translation>Erreur d’analyse de Kestrin 7</translation>
    </message>
    <message>
        <source>Wrong format of OXN file %1!</source>
        <translation>Le format du fichier OXN %1 est incorrect&#xa0;!</translation>
    </message>
    <message>
        <source>Link to image file [%1] doesn&apos;t exist!</source>
        <translation>Le fichier image lié [%1] n’existe pas&#xa0;!</translation>
    </message>
</context>
<context>
    <name>LineAndBracketSettPanel</name>
    <message>
        <source>  Line / Bracket settings:</source>
        <translation>  Paramètres des lignes et accolades :</translation>
    </message>
    <message>
        <source>Line width:</source>
        <translation>Épaisseur :</translation>
    </message>
    <message>
        <source>Line style:</source>
        <translation>Style de ligne :</translation>
    </message>
    <message>
        <source>Switch on antialiasing</source>
        <translation>Activer le lissage des contours</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Afficher la sélection</translation>
    </message>
</context>
<context>
    <name>LineStyles</name>
    <message>
        <source>Solid</source>
        <translation>Continu</translation>
    </message>
    <message>
        <source>Dash</source>
        <translation>Tirets</translation>
    </message>
    <message>
        <source>Dot</source>
        <translation>Points</translation>
    </message>
    <message>
        <source>Dash Dot</source>
        <translation>Tiret-point</translation>
    </message>
    <message>
        <source>Dash Dot Dot</source>
        <translation>Tiret-point-point</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Recent Files</source>
        <translation>Fichiers récents</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Ligne</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Forme</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>Accolade ou crochet</translation>
    </message>
    <message>
        <source>Predefined Pens</source>
        <translation>Stylos prédéfinis</translation>
    </message>
    <message>
        <source>Predefined Markers</source>
        <translation>Surligneurs prédéfinis</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Change Language</source>
        <translation>Changer de langue</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Toolbars</source>
        <translation>Barres d’outils</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Divers</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>New Text File</source>
        <translation>Nouveau fichier texte</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Ouvrir...</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importer...</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Enregistrer sous...</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Enregistrer...</translation>
    </message>
    <message>
        <source>Print...</source>
        <translation>Imprimer...</translation>
    </message>
    <message>
        <source>Send E-mail...</source>
        <translation>Envoyer par e-mail...</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Delete All Annotations...</source>
        <translation>Supprimer toutes les annotations...</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>Rechercher...</translation>
    </message>
    <message>
        <source>&amp;Online Support...</source>
        <translation>&amp;Assistance en ligne...</translation>
    </message>
    <message>
        <source>Kestrin 7 Website...</source>
        <translation>Site Web de Kestrin 7...</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>À propos...</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Stylo</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Surligneur</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rectangle</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Full Screen Mode</source>
        <translation>Mode plein écran</translation>
    </message>
    <message>
        <source>Hide Annotations</source>
        <translation>Masquer les annotations</translation>
    </message>
    <message>
        <source>Export to PDF...</source>
        <translation>Exporter en PDF...</translation>
    </message>
    <message>
        <source>Text Mode</source>
        <translation>Mode texte</translation>
    </message>
    <message>
        <source>Konfiguracja...</source>
        <translation>Configuration...</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Noir</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Jaune</translation>
    </message>
    <message>
        <source>Printout...</source>
        <translation>Impression...</translation>
    </message>
    <message>
        <source>Syntax Highlighting...</source>
        <translation>Coloration syntaxique...</translation>
    </message>
    <message>
        <source>Page View...</source>
        <translation>Affichage de la page...</translation>
    </message>
    <message>
        <source>General...</source>
        <translation>Général...</translation>
    </message>
    <message>
        <source>bla</source>
        <translation>bla</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Gomme</translation>
    </message>
    <message>
        <source>Snapshot Tool</source>
        <translation>Outil Instantané</translation>
    </message>
    <message>
        <source>List of Active Tags</source>
        <translation>Liste des étiquettes actives</translation>
    </message>
    <message>
        <source>Bookmarks List...</source>
        <translation>Liste des signets...</translation>
    </message>
    <message>
        <source>Customize...</source>
        <translation>Personnaliser...</translation>
    </message>
    <message>
        <source>Empty Circles</source>
        <translation>Cercles vides</translation>
    </message>
    <message>
        <source>Simple </source>
        <translation>Simple </translation>
    </message>
    <message>
        <source>Filled Circles</source>
        <translation>Cercles pleins</translation>
    </message>
    <message>
        <source>Empty / Filled Circle</source>
        <translation>Cercle vide / plein</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Flèche</translation>
    </message>
    <message>
        <source>Double Arrow</source>
        <translation>Double flèche</translation>
    </message>
    <message>
        <source>Empty Circle / Arrow</source>
        <translation>Cercle vide / flèche</translation>
    </message>
    <message>
        <source>Filled Circle / Arrow</source>
        <translation>Cercle plein / flèche</translation>
    </message>
    <message>
        <source>Rounded Rectangle</source>
        <translation>Rectangle arrondi</translation>
    </message>
    <message>
        <source>Transformation Mode</source>
        <translation>Mode transformation</translation>
    </message>
    <message>
        <source>One Line</source>
        <translation>Une ligne</translation>
    </message>
    <message>
        <source>Multi Line</source>
        <translation>Plusieurs lignes</translation>
    </message>
    <message>
        <source>M Line</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>Curly</source>
        <translation>Accolade</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Crochet</translation>
    </message>
    <message>
        <source>Text Box</source>
        <translation>Zone de texte</translation>
    </message>
    <message>
        <source>Show Statistics...</source>
        <translation>Afficher les statistiques...</translation>
    </message>
    <message>
        <source>Pen...</source>
        <translation>Stylo...</translation>
    </message>
    <message>
        <source>Marker...</source>
        <translation>Surligneur...</translation>
    </message>
    <message>
        <source>Text Box...</source>
        <translation>Zone de texte...</translation>
    </message>
    <message>
        <source>Line...</source>
        <translation>Ligne...</translation>
    </message>
    <message>
        <source>Shape...</source>
        <translation>Forme...</translation>
    </message>
    <message>
        <source>Snapshot...</source>
        <translation>Instantané...</translation>
    </message>
    <message>
        <source>Print Preview...</source>
        <translation>Aperçu avant impression...</translation>
    </message>
    <message>
        <source>adasd</source>
        <translation>adasd</translation>
    </message>
    <message>
        <source>Compact</source>
        <translation>Compact</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Minimal</source>
        <translation>Minimal</translation>
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
        <translation>Langue du système</translation>
    </message>
    <message>
        <source>Save Annotations...</source>
        <translation>Enregistrer les annotations...</translation>
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
        <translation>Paramètres du surligneur</translation>
    </message>
    <message>
        <source>  Marker settings:</source>
        <translation>  Paramètres du surligneur :</translation>
    </message>
    <message>
        <source>Line width:</source>
        <translation>Épaisseur :</translation>
    </message>
    <message>
        <source>Transparency [%]:</source>
        <translation>Transparence [%] :</translation>
    </message>
    <message>
        <source>Switch on antialiasing</source>
        <translation>Activer le lissage des contours</translation>
    </message>
    <message>
        <source>Switch on line smoothing (reduces size of output file)</source>
        <translation>Lisser les lignes (réduit la taille du fichier)</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Afficher la sélection</translation>
    </message>
</context>
<context>
    <name>OtherSettPanel</name>
    <message>
        <source>  Export to:</source>
        <translation>  Exporter en :</translation>
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
        <translation>  Autres paramètres :</translation>
    </message>
    <message>
        <source>Number of recent files:</source>
        <translation>Nombre de fichiers récents :</translation>
    </message>
    <message>
        <source>Tabs position:</source>
        <translation>Position des onglets :</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>À gauche</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>En bas</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>En haut</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>À droite</translation>
    </message>
    <message>
        <source>Switch to fullscreen mode at startup</source>
        <translation>Passer en plein écran au démarrage</translation>
    </message>
    <message>
        <source>Synchronize Annotations with text</source>
        <translation>Synchroniser les annotations avec le texte</translation>
    </message>
    <message>
        <source>Warn before all Annotations removal</source>
        <translation>Avertir avant de supprimer toutes les annotations</translation>
    </message>
</context>
<context>
    <name>Page</name>
    <message>
        <source>I/O Error</source>
        <translation>Erreur d’E/S</translation>
    </message>
    <message>
        <source>File %1 not found or its format is currently unsupported!</source>
        <translation>Le fichier %1 est introuvable ou son format n’est pas pris en charge&#xa0;!</translation>
    </message>
    <message>
        <source>I/O Warning</source>
        <translation>Avertissement d’E/S</translation>
    </message>
    <message>
        <source>Can&apos;t save file %1</source>
        <translation>Impossible d’enregistrer le fichier %1</translation>
    </message>
    <message>
        <source>Kestrin 7</source>
        <translation>Kestrin 7</translation>
    </message>
    <message>
        <source>Document [%1] contains annotations.
Do you want to save it as an &apos;Annotated&apos; OXN file?</source>
        <translation>Le document [%1] contient des annotations.
Voulez-vous l’enregistrer dans un fichier OXN «&#xa0;annoté&#xa0;»&#xa0;?</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 existe déjà.
Voulez-vous le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>Search Text</source>
        <translation>Recherche de texte</translation>
    </message>
    <message>
        <source>Document searching finished.</source>
        <translation>La recherche dans le document est terminée.</translation>
    </message>
    <message>
        <source>Page %1/%2</source>
        <translation>Page %1/%2</translation>
    </message>
</context>
<context>
    <name>PageStack</name>
    <message>
        <source>Close File</source>
        <translation>Fermer le fichier</translation>
    </message>
    <message>
        <source>Close All Files</source>
        <translation>Fermer tous les fichiers</translation>
    </message>
    <message>
        <source>Close Other Files</source>
        <translation>Fermer les autres fichiers</translation>
    </message>
    <message>
        <source>Kestrin 7</source>
        <translation>Kestrin 7</translation>
    </message>
    <message>
        <source>Document [%1] has been modified.
Do you want to save changes?</source>
        <translation>Le document [%1] a été modifié.
Voulez-vous enregistrer les modifications&#xa0;?</translation>
    </message>
    <message>
        <source>Kestrin7 Files (*.oxn);;</source>
        <translation>Fichiers Kestrin7 (*.oxn);;</translation>
    </message>
    <message>
        <source>Image Files (%1);;</source>
        <translation>Fichiers image (%1);;</translation>
    </message>
    <message>
        <source>All Files (*.*);;</source>
        <translation>Tous les fichiers (*.*);;</translation>
    </message>
    <message>
        <source>Save As File</source>
        <translation>Enregistrer sous</translation>
    </message>
</context>
<context>
    <name>PageViewSettPanel</name>
    <message>
        <source>  Default page settings:</source>
        <translation>  Paramètres de page par défaut :</translation>
    </message>
    <message>
        <source>Show line numbers</source>
        <translation>Afficher les numéros de ligne</translation>
    </message>
    <message>
        <source>Background color:</source>
        <translation>Couleur du fond :</translation>
    </message>
    <message>
        <source>Text color:</source>
        <translation>Couleur du texte :</translation>
    </message>
    <message>
        <source>Font family:</source>
        <translation>Police :</translation>
    </message>
    <message>
        <source>Font size:</source>
        <translation>Taille de police :</translation>
    </message>
    <message>
        <source>  Current page font settings:</source>
        <translation>  Police de la page courante :</translation>
    </message>
</context>
<context>
    <name>PageViewTab</name>
    <message>
        <source>Background Color</source>
        <translation>Couleur du fond</translation>
    </message>
    <message>
        <source>Font Color</source>
        <translation>Couleur de police</translation>
    </message>
</context>
<context>
    <name>PaperFile</name>
    <message>
        <source>The program &quot;pdftocairo&quot;, which makes PostScript files, was not found.</source>
        <translation>Le programme «&#xa0;pdftocairo&#xa0;», qui crée les fichiers PostScript, est introuvable.</translation>
    </message>
    <message>
        <source>The program &quot;pdftocairo&quot;, which makes PostScript files, did not finish its work.</source>
        <translation>Le programme «&#xa0;pdftocairo&#xa0;», qui crée les fichiers PostScript, n’a pas terminé son travail.</translation>
    </message>
    <message>
        <source>I/O Error</source>
        <translation>Erreur d’E/S</translation>
    </message>
    <message>
        <source>Can&apos;t save file %1</source>
        <translation>Impossible d’enregistrer le fichier %1</translation>
    </message>
</context>
<context>
    <name>PenSettPanel</name>
    <message>
        <source>Pen Settings</source>
        <translation>Paramètres du stylo</translation>
    </message>
    <message>
        <source>  Pen settings:</source>
        <translation>  Paramètres du stylo :</translation>
    </message>
    <message>
        <source>Line width:</source>
        <translation>Épaisseur :</translation>
    </message>
    <message>
        <source>Transparency [%]:</source>
        <translation>Transparence [%] :</translation>
    </message>
    <message>
        <source>Switch on antialiasing</source>
        <translation>Activer le lissage des contours</translation>
    </message>
    <message>
        <source>Switch on line smoothing (reduces size of output file)</source>
        <translation>Lisser les lignes (réduit la taille du fichier)</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Afficher la sélection</translation>
    </message>
</context>
<context>
    <name>PrintSettPanel</name>
    <message>
        <source>  Printout settings:</source>
        <translation>  Paramètres d’impression :</translation>
    </message>
    <message>
        <source>Print header:</source>
        <translation>Imprimer l’en-tête :</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>Nom du fichier</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Date et heure</translation>
    </message>
    <message>
        <source>Page numbers</source>
        <translation>Numéros de page</translation>
    </message>
    <message>
        <source>Print Annotations</source>
        <translation>Imprimer les annotations</translation>
    </message>
    <message>
        <source>Print line numbers</source>
        <translation>Imprimer les numéros de ligne</translation>
    </message>
</context>
<context>
    <name>QtColorPicker</name>
    <message>
        <source>Black</source>
        <translation>Noir</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Blanc</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Dark red</source>
        <translation>Rouge foncé</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Dark green</source>
        <translation>Vert foncé</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
    <message>
        <source>Dark blue</source>
        <translation>Bleu foncé</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Dark cyan</source>
        <translation>Cyan foncé</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>Magenta</translation>
    </message>
    <message>
        <source>Dark magenta</source>
        <translation>Magenta foncé</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Jaune</translation>
    </message>
    <message>
        <source>Dark yellow</source>
        <translation>Jaune foncé</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Gris</translation>
    </message>
    <message>
        <source>Dark gray</source>
        <translation>Gris foncé</translation>
    </message>
    <message>
        <source>Light gray</source>
        <translation>Gris clair</translation>
    </message>
</context>
<context>
    <name>QtToolBarDialog</name>
    <message>
        <source>Customize Toolbars</source>
        <translation>Personnaliser les barres d’outils</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>Toolbars</source>
        <translation>Barres d’outils</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nouvelle</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Current Toolbar Actions</source>
        <translation>Actions de la barre d’outils actuelle</translation>
    </message>
    <message>
        <source>Add to the toolbar</source>
        <translation>Ajouter à la barre d’outils</translation>
    </message>
    <message>
        <source>Take out of the toolbar</source>
        <translation>Retirer de la barre d’outils</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Restore All</source>
        <translation>Tout restaurer</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&lt; S E P A R A T O R &gt;</source>
        <translation>&lt; Séparateur &gt;</translation>
    </message>
    <message>
        <source>Custom Toolbar</source>
        <translation>Barre d’outils personnalisée</translation>
    </message>
</context>
<context>
    <name>ScreenShotTool</name>
    <message>
        <source>Image Files </source>
        <translation>Fichiers image </translation>
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
        <translation>(l&#xa0;: %1, h&#xa0;: %2)</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Selected area has been copied to the clipboard!</source>
        <translation>La zone sélectionnée a été copiée dans le presse-papiers&#xa0;!</translation>
    </message>
    <message>
        <source>Save As File</source>
        <translation>Enregistrer sous</translation>
    </message>
</context>
<context>
    <name>ScreenshotSettPanel</name>
    <message>
        <source>  Snapshot tool settings:</source>
        <translation>  Paramètres de l’outil Instantané :</translation>
    </message>
    <message>
        <source>Copy captured view to clipboard</source>
        <translation>Copier la vue capturée dans le presse-papiers</translation>
    </message>
    <message>
        <source>Save captured view to file</source>
        <translation>Enregistrer la vue capturée dans un fichier</translation>
    </message>
    <message>
        <source>Send captured view via e-mail</source>
        <translation>Envoyer la vue capturée par e-mail</translation>
    </message>
    <message>
        <source>Use Snapshot tool once (switch to previous tool)</source>
        <translation>Utiliser l’Instantané une fois (revenir à l’outil précédent)</translation>
    </message>
    <message>
        <source>Inform about captured view in clipboard</source>
        <translation>Signaler la vue capturée dans le presse-papiers</translation>
    </message>
</context>
<context>
    <name>Scrivara</name>
    <message>
        <source>Line Color</source>
        <translation>Couleur du trait</translation>
    </message>
    <message>
        <source>Fill Color</source>
        <translation>Couleur de remplissage</translation>
    </message>
    <message>
        <source>Text Files (*.txt)</source>
        <translation>Fichiers texte (*.txt)</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Ouvrir un fichier</translation>
    </message>
    <message>
        <source>Image Files (</source>
        <translation>Fichiers image (</translation>
    </message>
    <message>
        <source>Kestrin 7 Files (*.oxn);;</source>
        <translation>Fichiers Kestrin 7 (*.oxn);;</translation>
    </message>
    <message>
        <source>Text Files (*.txt);;</source>
        <translation>Fichiers texte (*.txt);;</translation>
    </message>
    <message>
        <source>C/C++ Files (*.c *.c++ *.cc *.cpp *.h);;</source>
        <translation>Fichiers C/C++ (*.c *.c++ *.cc *.cpp *.h);;</translation>
    </message>
    <message>
        <source>C# Files (*.cs);;</source>
        <translation>Fichiers C# (*.cs);;</translation>
    </message>
    <message>
        <source>Fortran Files (*.f);;</source>
        <translation>Fichiers Fortran (*.f);;</translation>
    </message>
    <message>
        <source>Java Files (*.java);;</source>
        <translation>Fichiers Java (*.java);;</translation>
    </message>
    <message>
        <source>Perl Files (*.pl);;</source>
        <translation>Fichiers Perl (*.pl);;</translation>
    </message>
    <message>
        <source>PHP Files (*.php *.phps);;</source>
        <translation>Fichiers PHP (*.php *.phps);;</translation>
    </message>
    <message>
        <source>Python Files (*.py);;</source>
        <translation>Fichiers Python (*.py);;</translation>
    </message>
    <message>
        <source>Ruby Files (*.rb);;</source>
        <translation>Fichiers Ruby (*.rb);;</translation>
    </message>
    <message>
        <source>All Files (*.*);;</source>
        <translation>Tous les fichiers (*.*);;</translation>
    </message>
    <message>
        <source>&amp;%1 %2</source>
        <translation>&amp;%1 %2</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Recent Files</source>
        <translation>Fichiers récents</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Ligne</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>Forme</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>Accolade ou crochet</translation>
    </message>
    <message>
        <source>Predefined Pens</source>
        <translation>Stylos prédéfinis</translation>
    </message>
    <message>
        <source>Predefined Markers</source>
        <translation>Surligneurs prédéfinis</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Change Language...</source>
        <translation>Changer de langue...</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Toolbars</source>
        <translation>Barres d’outils</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Divers</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>New Text File</source>
        <translation>Nouveau fichier texte</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Ouvrir...</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Enregistrer...</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Enregistrer sous...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Export to PDF...</source>
        <translation>Exporter en PDF...</translation>
    </message>
    <message>
        <source>Print Preview...</source>
        <translation>Aperçu avant impression...</translation>
    </message>
    <message>
        <source>Print...</source>
        <translation>Imprimer...</translation>
    </message>
    <message>
        <source>Send E-mail...</source>
        <translation>Envoyer par e-mail...</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>Rechercher...</translation>
    </message>
    <message>
        <source>Delete All Annotations...</source>
        <translation>Supprimer toutes les annotations...</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Stylo</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Surligneur</translation>
    </message>
    <message>
        <source>Text Box</source>
        <translation>Zone de texte</translation>
    </message>
    <message>
        <source>Simple</source>
        <translation>Simple</translation>
    </message>
    <message>
        <source>Empty Circles</source>
        <translation>Cercles vides</translation>
    </message>
    <message>
        <source>Filled Circles</source>
        <translation>Cercles pleins</translation>
    </message>
    <message>
        <source>Empty / Filled Circle</source>
        <translation>Cercle vide / plein</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Flèche</translation>
    </message>
    <message>
        <source>Double Arrow</source>
        <translation>Double flèche</translation>
    </message>
    <message>
        <source>Empty Circle / Arrow</source>
        <translation>Cercle vide / flèche</translation>
    </message>
    <message>
        <source>Filled Circle / Arrow</source>
        <translation>Cercle plein / flèche</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rectangle</translation>
    </message>
    <message>
        <source>Rounded Rectangle</source>
        <translation>Rectangle arrondi</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Curly</source>
        <translation>Accolade</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Crochet</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Gomme</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Noir</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Jaune</translation>
    </message>
    <message>
        <source>Text Mode</source>
        <translation>Mode texte</translation>
    </message>
    <message>
        <source>Transformation Mode</source>
        <translation>Mode transformation</translation>
    </message>
    <message>
        <source>Pen...</source>
        <translation>Stylo...</translation>
    </message>
    <message>
        <source>Marker...</source>
        <translation>Surligneur...</translation>
    </message>
    <message>
        <source>Text Box...</source>
        <translation>Zone de texte...</translation>
    </message>
    <message>
        <source>Line...</source>
        <translation>Ligne...</translation>
    </message>
    <message>
        <source>Shape...</source>
        <translation>Forme...</translation>
    </message>
    <message>
        <source>Snapshot...</source>
        <translation>Instantané...</translation>
    </message>
    <message>
        <source>Page View...</source>
        <translation>Affichage de la page...</translation>
    </message>
    <message>
        <source>Syntax Highlighting...</source>
        <translation>Coloration syntaxique...</translation>
    </message>
    <message>
        <source>Printout...</source>
        <translation>Impression...</translation>
    </message>
    <message>
        <source>E-mail...</source>
        <translation>E-mail...</translation>
    </message>
    <message>
        <source>General...</source>
        <translation>Général...</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Langue du système</translation>
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
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Full Screen Mode</source>
        <translation>Mode plein écran</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Compact</source>
        <translation>Compact</translation>
    </message>
    <message>
        <source>Minimal</source>
        <translation>Minimal</translation>
    </message>
    <message>
        <source>Hide Annotations</source>
        <translation>Masquer les annotations</translation>
    </message>
    <message>
        <source>Customize Toolbars...</source>
        <translation>Personnaliser les barres d’outils...</translation>
    </message>
    <message>
        <source>Snapshot Tool</source>
        <translation>Outil Instantané</translation>
    </message>
    <message>
        <source>Online Support...</source>
        <translation>Assistance en ligne...</translation>
    </message>
    <message>
        <source>Kestrin 7 Website...</source>
        <translation>Site Web de Kestrin 7...</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>À propos...</translation>
    </message>
    <message>
        <source>List of Active Tags</source>
        <translation>Liste des étiquettes actives</translation>
    </message>
    <message>
        <source>Show Statistics...</source>
        <translation>Afficher les statistiques...</translation>
    </message>
    <message>
        <source>Simple Line</source>
        <translation>Ligne simple</translation>
    </message>
    <message>
        <source>Curly Bracket</source>
        <translation>Accolade</translation>
    </message>
    <message>
        <source>Square Bracket</source>
        <translation>Crochet</translation>
    </message>
    <message>
        <source>Thin Black Pen</source>
        <translation>Stylo fin noir</translation>
    </message>
    <message>
        <source>Thin Red Pen</source>
        <translation>Stylo fin rouge</translation>
    </message>
    <message>
        <source>Thin Green Pen</source>
        <translation>Stylo fin vert</translation>
    </message>
    <message>
        <source>Thin Blue Pen</source>
        <translation>Stylo fin bleu</translation>
    </message>
    <message>
        <source>Medium Black Pen</source>
        <translation>Stylo moyen noir</translation>
    </message>
    <message>
        <source>Medium Red Pen</source>
        <translation>Stylo moyen rouge</translation>
    </message>
    <message>
        <source>Medium Green Pen</source>
        <translation>Stylo moyen vert</translation>
    </message>
    <message>
        <source>Medium Blue Pen</source>
        <translation>Stylo moyen bleu</translation>
    </message>
    <message>
        <source>Red Marker</source>
        <translation>Surligneur rouge</translation>
    </message>
    <message>
        <source>Green Marker</source>
        <translation>Surligneur vert</translation>
    </message>
    <message>
        <source>Blue Marker</source>
        <translation>Surligneur bleu</translation>
    </message>
    <message>
        <source>Yellow Marker</source>
        <translation>Surligneur jaune</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>Basic Tools</source>
        <translation>Outils de base</translation>
    </message>
    <message>
        <source>Shapes</source>
        <translation>Formes</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>Accolades et crochets</translation>
    </message>
    <message>
        <source>Pens and Markers</source>
        <translation>Stylos et surligneurs</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Case Sensitive</source>
        <translation>Respecter la casse</translation>
    </message>
    <message>
        <source>Whole Words</source>
        <translation>Mots entiers</translation>
    </message>
    <message>
        <source>Actual Page Size</source>
        <translation>Taille actuelle de la page</translation>
    </message>
    <message>
        <source>Unlock Document</source>
        <translation>Déverrouiller le document</translation>
    </message>
    <message>
        <source>Highlight Syntax</source>
        <translation>Colorer la syntaxe</translation>
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
        <translation>Déverrouiller le document</translation>
    </message>
    <message>
        <source>Highlight syntax</source>
        <translation>Colorer la syntaxe</translation>
    </message>
    <message>
        <source>Idea</source>
        <translation>Idée</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Question</translation>
    </message>
    <message>
        <source>Important</source>
        <translation>Important</translation>
    </message>
    <message>
        <source>Bug</source>
        <translation>Bogue</translation>
    </message>
    <message>
        <source>Add Active Tag</source>
        <translation>Ajouter une étiquette active</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>All annotations will be removed! There is no way to revert the operation. 
Do you want to continue?</source>
        <translation>Toutes les annotations vont être supprimées&#xa0;! Cette opération est irréversible. 
Voulez-vous continuer&#xa0;?</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Exporter en PDF</translation>
    </message>
    <message>
        <source>Export to PS</source>
        <translation>Exporter en PS</translation>
    </message>
    <message>
        <source>I/O Warning</source>
        <translation>Avertissement d’E/S</translation>
    </message>
    <message>
        <source>Can&apos;t save file %1</source>
        <translation>Impossible d’enregistrer le fichier %1</translation>
    </message>
    <message>
        <source>Kestrin 7 couldn&apos;t detect default e-mail client on your system.
          Please, setup path using: Settings -&gt; E-mail</source>
        <translation>Kestrin 7 n’a pas trouvé de client de messagerie par défaut sur votre système.
          Indiquez son chemin dans&#xa0;: Paramètres -&gt; E-mail</translation>
    </message>
</context>
<context>
    <name>ShapeSettPanel</name>
    <message>
        <source>  Rectangle / Ellipse settings:</source>
        <translation>  Paramètres du rectangle et de l’ellipse :</translation>
    </message>
    <message>
        <source>Line width:</source>
        <translation>Épaisseur :</translation>
    </message>
    <message>
        <source>Line style:</source>
        <translation>Style de ligne :</translation>
    </message>
    <message>
        <source>Transparency [%]:</source>
        <translation>Transparence [%] :</translation>
    </message>
    <message>
        <source>Switch on antialiasing</source>
        <translation>Activer le lissage des contours</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Afficher la sélection</translation>
    </message>
</context>
<context>
    <name>StatisticsChart</name>
    <message>
        <source>comments</source>
        <translation>commentaires</translation>
    </message>
    <message>
        <source>code</source>
        <translation>code</translation>
    </message>
    <message>
        <source>empty lines</source>
        <translation>lignes vides</translation>
    </message>
    <message>
        <source>Total # of lines: %1</source>
        <translation>Nombre de lignes : %1</translation>
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
        <translation>Zettelwerk - Statistiques du code source</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimer</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Exporter en PDF</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Tot Lines</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>Cod Lines</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Com Lines</source>
        <translation>Commentaires</translation>
    </message>
    <message>
        <source>Emp Lines</source>
        <translation>Vides</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Fichiers</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>Graphique</translation>
    </message>
</context>
<context>
    <name>SyntaxFile</name>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Syntax file for .%1 doesn&apos;t exist!</source>
        <translation>Le fichier de syntaxe pour .%1 n’existe pas&#xa0;!</translation>
    </message>
    <message>
        <source>Can&apos;t open syntax file: %1 !</source>
        <translation>Impossible d’ouvrir le fichier de syntaxe&#xa0;: %1&#xa0;!</translation>
    </message>
    <message>
        <source>Format of syntax file &apos;%1&apos; is wrong!</source>
        <translation>Le format du fichier de syntaxe «&#xa0;%1&#xa0;» est incorrect&#xa0;!</translation>
    </message>
</context>
<context>
    <name>SyntaxSettPanel</name>
    <message>
        <source>  Syntax highlighting:</source>
        <translation>  Coloration syntaxique :</translation>
    </message>
    <message>
        <source>File extension:</source>
        <translation>Extension de fichier :</translation>
    </message>
    <message>
        <source>New...</source>
        <translation>Nouveau...</translation>
    </message>
    <message>
        <source>Highlighted elements:</source>
        <translation>Éléments colorés :</translation>
    </message>
    <message>
        <source>Keywords</source>
        <translation>Mots-clés</translation>
    </message>
    <message>
        <source>Types</source>
        <translation>Types</translation>
    </message>
    <message>
        <source>Comments</source>
        <translation>Commentaires</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Edit...</source>
        <translation>Modifier...</translation>
    </message>
    <message>
        <source>Font...</source>
        <translation>Police...</translation>
    </message>
    <message>
        <source>Color...</source>
        <translation>Couleur...</translation>
    </message>
    <message>
        <source>Background Color...</source>
        <translation>Couleur du fond...</translation>
    </message>
    <message>
        <source>Highlight syntax by default</source>
        <translation>Colorer la syntaxe par défaut</translation>
    </message>
</context>
<context>
    <name>SyntaxTab</name>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Can&apos;t save syntax file: %1 !</source>
        <translation>Impossible d’enregistrer le fichier de syntaxe : %1 !</translation>
    </message>
    <message>
        <source>Register extension</source>
        <translation>Enregistrer une extension</translation>
    </message>
    <message>
        <source>New file extension: </source>
        <translation>Nouvelle extension de fichier : </translation>
    </message>
    <message>
        <source>This file extension is already registered!</source>
        <translation>Cette extension de fichier est déjà enregistrée !</translation>
    </message>
</context>
<context>
    <name>TextBoxSettPanel</name>
    <message>
        <source>TextBox Settings</source>
        <translation>Paramètres de la zone de texte</translation>
    </message>
    <message>
        <source>  TextBox settings:</source>
        <translation>  Paramètres de la zone de texte :</translation>
    </message>
    <message>
        <source>Font family:</source>
        <translation>Police :</translation>
    </message>
    <message>
        <source>Font size:</source>
        <translation>Taille de police :</translation>
    </message>
    <message>
        <source>Use TextBox tool once (switch to previous tool)</source>
        <translation>Zone de texte une seule fois (puis outil précédent)</translation>
    </message>
</context>
<context>
    <name>TextBoxTool</name>
    <message>
        <source>Enter Text Here</source>
        <translation>Saisissez le texte ici</translation>
    </message>
</context>
<context>
    <name>ViewModeDialog</name>
    <message>
        <source>Standard View</source>
        <translation>Affichage standard</translation>
    </message>
</context>
</TS>
