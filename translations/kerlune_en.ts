<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="fr">
    <context>
        <name>Kerlune</name>
        <message>
            <source>Écriture de « %1 » impossible : %2</source>
            <translation>“%1” cannot be written: %2</translation>
        </message>
        <message>
            <source>La bibliothèque n’a pas pu être lue à temps.</source>
            <translation>The library could not be read in time.</translation>
        </message>
        <message>
            <source>La fenêtre n’a pas pu être dessinée à temps.</source>
            <translation>The window could not be drawn in time.</translation>
        </message>
        <message>
            <source>Il manque une commande, ou un écran pour ouvrir la fenêtre.</source>
            <translation>A command is missing, or a display to open the window on.</translation>
        </message>
        <message>
            <source>« kerlune --help » donne les commandes.</source>
            <translation>“kerlune --help” lists the commands.</translation>
        </message>
        <message>
            <source>Appliquer la police sélectionnée</source>
            <translation>Apply the selected font</translation>
        </message>
        <message>
            <source>Script « %1.jsx » introuvable dans l'app.</source>
            <translation>The script “%1.jsx” is missing from the program.</translation>
        </message>
        <message>
            <source>Script AppleScript invalide.</source>
            <translation>Invalid AppleScript.</translation>
        </message>
        <message>
            <source>Erreur inconnue</source>
            <translation>Unknown error</translation>
        </message>
        <message>
            <source>%1 n'a pas autorisé Kerlune. Réglages Système &gt; Confidentialité et sécurité &gt; Automatisation.</source>
            <translation>%1 has not authorised Kerlune. System Settings &gt; Privacy &amp; Security &gt; Automation.</translation>
        </message>
        <message>
            <source>%1 n'est pas lancé.</source>
            <translation>%1 is not running.</translation>
        </message>
        <message>
            <source>calques de texte sélectionnés</source>
            <translation>selected text layers</translation>
        </message>
        <message>
            <source>objets texte ou caractères sélectionnés</source>
            <translation>selected text objects or characters</translation>
        </message>
        <message>
            <source>blocs de texte, texte ou caractères sélectionnés</source>
            <translation>selected text frames, text or characters</translation>
        </message>
        <message>
            <source>titres Text+ sélectionnés, ou celui sous la tête de lecture</source>
            <translation>selected Text+ titles, or the one under the playhead</translation>
        </message>
        <message>
            <source>Aucun document ouvert</source>
            <translation>No document is open</translation>
        </message>
        <message>
            <source>%3 ne connaît pas la police « %1 ». Si elle vient d'être activée, attendez quelques secondes.</source>
            <translation>%3 does not know the font “%1”. If it has just been activated, wait a few seconds.</translation>
        </message>
        <message>
            <source>Aucune sélection</source>
            <translation>Nothing is selected</translation>
        </message>
        <message>
            <source>La sélection ne contient aucun texte</source>
            <translation>The selection contains no text</translation>
        </message>
        <message>
            <source>Sélectionnez un calque de texte (calque actif : %1)</source>
            <translation>Select a text layer (active layer: %1)</translation>
        </message>
        <message>
            <source>Aucune composition active</source>
            <translation>No composition is active</translation>
        </message>
        <message>
            <source>Aucun calque sélectionné</source>
            <translation>No layer is selected</translation>
        </message>
        <message>
            <source>La sélection ne contient aucun calque de texte</source>
            <translation>The selection contains no text layer</translation>
        </message>
        <message>
            <source>Module de scripting de Resolve introuvable (%1)</source>
            <translation>Resolve’s scripting module was not found (%1)</translation>
        </message>
        <message>
            <source>Arguments manquants : famille et style attendus</source>
            <translation>Missing arguments: family and style expected</translation>
        </message>
        <message>
            <source>Impossible de joindre Resolve. Vérifiez Préférences &gt; Système &gt; Général &gt; Scripting externe : Local.</source>
            <translation>Resolve cannot be reached. Check Preferences &gt; System &gt; General &gt; External scripting: Local.</translation>
        </message>
        <message>
            <source>Resolve ne connaît pas la police « %1 ». Si elle vient d'être activée, relancez Resolve.</source>
            <translation>Resolve does not know the font “%1”. If it has just been activated, restart Resolve.</translation>
        </message>
        <message>
            <source>Aucune composition Fusion ouverte</source>
            <translation>No Fusion composition is open</translation>
        </message>
        <message>
            <source>Aucune timeline ouverte</source>
            <translation>No timeline is open</translation>
        </message>
        <message>
            <source>Sélectionnez un titre Text+ dans la timeline</source>
            <translation>Select a Text+ title in the timeline</translation>
        </message>
        <message>
            <source>La sélection ne contient aucun titre Text+</source>
            <translation>The selection contains no Text+ title</translation>
        </message>
        <message>
            <source>Resolve a refusé la modification</source>
            <translation>Resolve refused the change</translation>
        </message>
        <message>
            <source>style « %1 » absent de Resolve, « %2 » utilisé</source>
            <translation>style “%1” is missing from Resolve, “%2” used</translation>
        </message>
        <message>
            <source>Aucune application compatible n'est lancée (%1).</source>
            <translation>No compatible application is running (%1).</translation>
        </message>
        <message>
            <source>Kerlune : changer la police</source>
            <translation>Kerlune: change font</translation>
        </message>
        <message>
            <source>Aucune réponse du script.</source>
            <translation>No answer from the script.</translation>
        </message>
        <message>
            <source>Le script Resolve n'a rien renvoyé.</source>
            <translation>The Resolve script returned nothing.</translation>
        </message>
        <message>
            <source>Lancement impossible : </source>
            <translation>Cannot launch: </translation>
        </message>
        <message>
            <source>Resolve n'a pas répondu en %1 s.</source>
            <translation>Resolve did not answer within %1 s.</translation>
        </message>
        <message>
            <source>Script « resolve.py » introuvable dans l'app.</source>
            <translation>The script “resolve.py” is missing from the program.</translation>
        </message>
        <message>
            <source>Python embarqué introuvable : DaVinci Resolve 21.1 ou plus récent est requis.</source>
            <translation>Embedded Python not found: DaVinci Resolve 21.1 or later is required.</translation>
        </message>
        <message>
            <source>Action inconnue : « %1 ».</source>
            <translation>Unknown action: “%1”.</translation>
        </message>
        <message>
            <source>Nombre d’arguments incorrect pour « %1 ».</source>
            <translation>Wrong number of arguments for “%1”.</translation>
        </message>
        <message>
            <source>La famille « %1 » n’a aucun fichier dans un dossier surveillé : ses polices sont celles du système, que tous les programmes voient déjà.</source>
            <translation>The family “%1” has no file in a watched folder: its fonts are the system’s, which every program sees already.</translation>
        </message>
        <message>
            <source>Aucune famille « %1 » dans l’index ; « kerlune index » le remet à jour.</source>
            <translation>No family “%1” in the index; “kerlune index” brings it up to date.</translation>
        </message>
        <message numerus="yes">
            <source>%1 fichiers activés.</source>
            <translation>
                <numerusform>%1 file activated.</numerusform>
                <numerusform>%1 files activated.</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 fichiers désactivés.</source>
            <translation>
                <numerusform>%1 file deactivated.</numerusform>
                <numerusform>%1 files deactivated.</numerusform>
            </translation>
        </message>
        <message>
            <source>Donnez des chemins, ou une famille par --family.</source>
            <translation>Give paths, or a family by --family.</translation>
        </message>
        <message>
            <source>Aucune police à ces emplacements.</source>
            <translation>No font at these places.</translation>
        </message>
        <message>
            <source>Activation…</source>
            <translation>Activating…</translation>
        </message>
        <message>
            <source>Désactivation…</source>
            <translation>Deactivating…</translation>
        </message>
        <message>
            <source>fontconfig ne lit pas le dossier des polices actives (%1) : les autres programmes ne les verront pas. Ajoutez ce dossier à sa configuration.</source>
            <translation>fontconfig does not read the folder of active fonts (%1): other programs will not see them. Add this folder to its configuration.</translation>
        </message>
        <message numerus="yes">
            <source>Police appliquée à %1 éléments.</source>
            <translation>
                <numerusform>Font applied to %1 item.</numerusform>
                <numerusform>Font applied to %1 items.</numerusform>
            </translation>
        </message>
        <message>
            <source>Donnez par --to le programme où appliquer la police.</source>
            <translation>Give the program to apply the font in with --to.</translation>
        </message>
        <message>
            <source>Programme inconnu : « %1 ».</source>
            <translation>Unknown program: “%1”.</translation>
        </message>
        <message>
            <source>Les programmes sont : %1.</source>
            <translation>The programs are: %1.</translation>
        </message>
        <message>
            <source>Donnez un fichier, ou « - » pour la sortie standard.</source>
            <translation>Give a file, or “-” for standard output.</translation>
        </message>
        <message>
            <source>« - » et --json écrivent tous deux sur la sortie standard.</source>
            <translation>“-” and --json both write to standard output.</translation>
        </message>
        <message>
            <source>Sauvegarde : %1.</source>
            <translation>Backed up: %1.</translation>
        </message>
        <message>
            <source>Donnez un fichier, ou « - » pour l’entrée standard.</source>
            <translation>Give a file, or “-” for standard input.</translation>
        </message>
        <message>
            <source>« %1 » ne peut pas être restauré : %2. Rien n’a changé.</source>
            <translation>“%1” cannot be restored: %2. Nothing has changed.</translation>
        </message>
        <message>
            <source>Restauré : %1.</source>
            <translation>Restored: %1.</translation>
        </message>
        <message>
            <source>Donnez un fichier PNG : --output FICHIER.</source>
            <translation>Give a PNG file: --output FILE.</translation>
        </message>
        <message>
            <source>--size demande LARGEURxHAUTEUR, chacune de %1 à %2, comme 1280x800.</source>
            <translation>--size takes WIDTHxHEIGHT, each from %1 to %2, such as 1280x800.</translation>
        </message>
        <message>
            <source>--scale demande un nombre de 1 à 4.</source>
            <translation>--scale takes a number from 1 to 4.</translation>
        </message>
        <message>
            <source>--preview-size demande un nombre de 4 à 2000.</source>
            <translation>--preview-size takes a number from 4 to 2000.</translation>
        </message>
        <message>
            <source>« %1 » n’est pas une valeur de %2. Valeurs possibles : %3.</source>
            <translation>“%1” is not a value of %2. Possible values: %3.</translation>
        </message>
        <message>
            <source>Options</source>
            <translation>Options</translation>
        </message>
        <message>
            <source>Le fichier à écrire.</source>
            <translation>The file to write.</translation>
        </message>
        <message>
            <source>Taille de la fenêtre ; 1280x800 si rien n’est donné.</source>
            <translation>Size of the window; 1280x800 when nothing is given.</translation>
        </message>
        <message>
            <source>Pixels de l’image pour un pixel de la fenêtre, de 1 à 4.</source>
            <translation>Pixels of the image for a pixel of the window, from 1 to 4.</translation>
        </message>
        <message>
            <source>Ce que montre la barre latérale, comme pour families.</source>
            <translation>What the sidebar shows, as for families.</translation>
        </message>
        <message>
            <source>grid, list, waterfall ou compare.</source>
            <translation>grid, list, waterfall or compare.</translation>
        </message>
        <message>
            <source>Familles sélectionnées.</source>
            <translation>Selected families.</translation>
        </message>
        <message>
            <source>Le panneau de l’inspecteur.</source>
            <translation>The panel of the inspector.</translation>
        </message>
        <message>
            <source>light ou dark.</source>
            <translation>light or dark.</translation>
        </message>
        <message>
            <source>fr ou en.</source>
            <translation>fr or en.</translation>
        </message>
        <message>
            <source>Le texte cherché.</source>
            <translation>The text to search for.</translation>
        </message>
        <message>
            <source>Le texte d’aperçu.</source>
            <translation>The preview text.</translation>
        </message>
        <message>
            <source>Taille de l’aperçu, en points.</source>
            <translation>Size of the preview, in points.</translation>
        </message>
        <message>
            <source>La fenêtre des réglages.</source>
            <translation>The settings window.</translation>
        </message>
        <message>
            <source>Usage : kerlune collections [list | create NOM | rename ID NOM | delete ID | add ID FAMILLE… | remove ID FAMILLE…]</source>
            <translation>Usage: kerlune collections [list | create NAME | rename ID NAME | delete ID | add ID FAMILY… | remove ID FAMILY…]</translation>
        </message>
        <message numerus="yes">
            <source>%1 familles</source>
            <translation>
                <numerusform>%1 family</numerusform>
                <numerusform>%1 families</numerusform>
            </translation>
        </message>
        <message>
            <source>Le nom d’une collection ne peut pas être vide.</source>
            <translation>The name of a collection cannot be empty.</translation>
        </message>
        <message>
            <source>Utilisation</source>
            <translation>Usage</translation>
        </message>
        <message>
            <source>Arguments</source>
            <translation>Arguments</translation>
        </message>
        <message>
            <source>OPTIONS</source>
            <translation>OPTIONS</translation>
        </message>
        <message>
            <source>COMMANDE</source>
            <translation>COMMAND</translation>
        </message>
        <message>
            <source>Argument inattendu : « %1 ».</source>
            <translation>Unexpected argument: “%1”.</translation>
        </message>
        <message>
            <source>« %1 » demande une valeur, et une seule.</source>
            <translation>“%1” takes one value, and only one.</translation>
        </message>
        <message>
            <source>Arguments incorrects : %1</source>
            <translation>Wrong arguments: %1</translation>
        </message>
        <message>
            <source>Kerlune, la bibliothèque de polices.</source>
            <translation>Kerlune, the font library.</translation>
        </message>
        <message>
            <source>Affiche cette aide.</source>
            <translation>Shows this help.</translation>
        </message>
        <message>
            <source>Affiche la version.</source>
            <translation>Shows the version.</translation>
        </message>
        <message>
            <source>Relit toutes les polices disponibles et enregistre l’index.</source>
            <translation>Reads every available font again and stores the index.</translation>
        </message>
        <message>
            <source>Affiche les polices de l’index.</source>
            <translation>Shows the fonts of the index.</translation>
        </message>
        <message>
            <source>Gère les dossiers surveillés : list, add, remove, auto on|off, rescan.</source>
            <translation>Manages the watched folders: list, add, remove, auto on|off, rescan.</translation>
        </message>
        <message>
            <source>list (si rien n’est donné) ; add CHEMIN ; remove CHEMIN-OU-ID ; auto CHEMIN-OU-ID on|off ; rescan</source>
            <translation>list (when nothing is given); add PATH; remove PATH-OR-ID; auto PATH-OR-ID on|off; rescan</translation>
        </message>
        <message>
            <source>Rend des polices visibles pour tous les programmes.</source>
            <translation>Makes fonts visible to every program.</translation>
        </message>
        <message>
            <source>Retire des polices aux autres programmes ; aucun fichier n’est effacé.</source>
            <translation>Hides fonts from other programs; no file is deleted.</translation>
        </message>
        <message>
            <source>Affiche les fichiers actifs.</source>
            <translation>Shows the active files.</translation>
        </message>
        <message>
            <source>Cherche les polices en double : noms PostScript en conflit, copies, versions.</source>
            <translation>Looks for duplicate fonts: conflicting PostScript names, copies, versions.</translation>
        </message>
        <message>
            <source>Dossiers ou fichiers à examiner, au lieu de ceux où les polices s’installent.</source>
            <translation>Folders or files to look at, instead of those where fonts are installed.</translation>
        </message>
        <message>
            <source>« %1 » n’est pas de l’UTF-8 valide.</source>
            <translation>“%1” is not valid UTF-8.</translation>
        </message>
        <message>
            <source>Commandes</source>
            <translation>Commands</translation>
        </message>
        <message>
            <source>Écrit le résultat en JSON.</source>
            <translation>Writes the result as JSON.</translation>
        </message>
        <message>
            <source>list (si rien n’est donné) ; </source>
            <translation>list (when nothing is given); </translation>
        </message>
        <message>
            <source>Affiche les familles de la bibliothèque, filtrées.</source>
            <translation>Shows the families of the library, filtered.</translation>
        </message>
        <message>
            <source>Ce qui est filtré : all, favorites, recents, variable, color, duplicates, class:CLASSE, collection:ID-OU-NOM, folder:ID-OU-CHEMIN, tag:TAG, smart:ID-OU-NOM.</source>
            <translation>What is filtered: all, favorites, recents, variable, color, duplicates, class:CLASS, collection:ID-OR-NAME, folder:ID-OR-PATH, tag:TAG, smart:ID-OR-NAME.</translation>
        </message>
        <message>
            <source>SÉLECTION</source>
            <translation>SELECTION</translation>
        </message>
        <message>
            <source>Gère les tags des familles.</source>
            <translation>Manages the tags of families.</translation>
        </message>
        <message>
            <source>add TAG FAMILLE… ; remove TAG FAMILLE… ; rename TAG NOUVEAU ; delete TAG</source>
            <translation>add TAG FAMILY…; remove TAG FAMILY…; rename TAG NEW; delete TAG</translation>
        </message>
        <message>
            <source>Gère les collections de familles.</source>
            <translation>Manages the collections of families.</translation>
        </message>
        <message>
            <source>create NOM ; rename ID NOM ; delete ID ; add ID FAMILLE… ; remove ID FAMILLE…</source>
            <translation>create NAME; rename ID NAME; delete ID; add ID FAMILY…; remove ID FAMILY…</translation>
        </message>
        <message>
            <source>Gère les collections intelligentes, des filtres gardés sous un nom.</source>
            <translation>Manages smart collections, which are filters kept under a name.</translation>
        </message>
        <message>
            <source>save NOM FILTRES ; update ID FILTRES ; rename ID NOM ; delete ID</source>
            <translation>save NAME FILTERS; update ID FILTERS; rename ID NAME; delete ID</translation>
        </message>
        <message>
            <source>Gère les familles favorites.</source>
            <translation>Manages the favorite families.</translation>
        </message>
        <message>
            <source>add FAMILLE… ; remove FAMILLE…</source>
            <translation>add FAMILY…; remove FAMILY…</translation>
        </message>
        <message>
            <source>Gère les familles utilisées récemment.</source>
            <translation>Manages the recently used families.</translation>
        </message>
        <message>
            <source>add FAMILLE…</source>
            <translation>add FAMILY…</translation>
        </message>
        <message>
            <source>Affiche l’empreinte d’une police : 872 nombres qui décrivent le dessin de ses lettres.</source>
            <translation>Shows the fingerprint of a font: 872 numbers that describe how its letters are drawn.</translation>
        </message>
        <message>
            <source>NOM-POSTSCRIPT</source>
            <translation>POSTSCRIPT-NAME</translation>
        </message>
        <message>
            <source>Le nom PostScript de la police.</source>
            <translation>The PostScript name of the font.</translation>
        </message>
        <message>
            <source>Sauvegarde les tags, collections, favoris et familles récentes.</source>
            <translation>Backs up tags, collections, favorites and recent families.</translation>
        </message>
        <message>
            <source>Ajoute ce que contient une sauvegarde.</source>
            <translation>Adds what a backup holds.</translation>
        </message>
        <message>
            <source>Cherche les polices dont le dessin ressemble à celui d’une police.</source>
            <translation>Finds the fonts whose drawing looks like that of a font.</translation>
        </message>
        <message>
            <source>Nombre de résultats au plus ; 8 si rien n’est donné.</source>
            <translation>Number of results at most; 8 when nothing is given.</translation>
        </message>
        <message>
            <source>NOMBRE</source>
            <translation>NUMBER</translation>
        </message>
        <message>
            <source>Avec les polices non latines.</source>
            <translation>With non-Latin fonts.</translation>
        </message>
        <message>
            <source>Consulte le catalogue Google Fonts, et en installe des familles.</source>
            <translation>Looks at the Google Fonts catalogue, and installs families from it.</translation>
        </message>
        <message>
            <source>catalog (si rien n’est donné) ; preview FAMILLE ; subsets ; install FAMILLE ; remove FAMILLE</source>
            <translation>catalog (when nothing is given); preview FAMILY; subsets; install FAMILY; remove FAMILY</translation>
        </message>
        <message>
            <source>Demande le catalogue au service, même si celui du disque a moins de sept jours.</source>
            <translation>Asks the service for the catalogue, even when the one on disk is less than seven days old.</translation>
        </message>
        <message>
            <source>Applique une police au texte sélectionné dans un autre programme.</source>
            <translation>Applies a font to the text selected in another program.</translation>
        </message>
        <message>
            <source>Le programme : photoshop, illustrator, indesign, after-effects ou resolve.</source>
            <translation>The program: photoshop, illustrator, indesign, after-effects or resolve.</translation>
        </message>
        <message>
            <source>PROGRAMME</source>
            <translation>PROGRAM</translation>
        </message>
        <message>
            <source>Ouvre la fenêtre, ou la met devant ; les dossiers donnés sont surveillés.</source>
            <translation>Opens the window, or raises it; the folders given are watched.</translation>
        </message>
        <message>
            <source>Dossiers ou polices à montrer.</source>
            <translation>Folders or fonts to show.</translation>
        </message>
        <message>
            <source>Écrit une image de la fenêtre, sans écran.</source>
            <translation>Writes a picture of the window, without a display.</translation>
        </message>
        <message>
            <source>Le fichier, ou « - » pour la sortie ou l’entrée standard.</source>
            <translation>The file, or “-” for standard output or input.</translation>
        </message>
        <message>
            <source>Fichiers, ou dossiers avec tout ce qu’ils contiennent.</source>
            <translation>Files, or folders with all that they hold.</translation>
        </message>
        <message>
            <source>Les fichiers de cette famille qui sont dans les dossiers surveillés.</source>
            <translation>The files of this family that lie in watched folders.</translation>
        </message>
        <message>
            <source>NOM</source>
            <translation>NAME</translation>
        </message>
        <message>
            <source>Écriture de la sortie impossible.</source>
            <translation>The output cannot be written.</translation>
        </message>
        <message>
            <source>Fichier ou dossier introuvable : %1</source>
            <translation>File or folder not found: %1</translation>
        </message>
        <message>
            <source>Lecture de « %1 » impossible : %2</source>
            <translation>“%1” cannot be read: %2</translation>
        </message>
        <message>
            <source>[%1 récupérables]</source>
            <translation>[%1 can be freed]</translation>
        </message>
        <message>
            <source>%1 : %2</source>
            <translation>%1: %2</translation>
        </message>
        <message>
            <source>Fichiers illisibles : %1</source>
            <translation>Unreadable files: %1</translation>
        </message>
        <message numerus="yes">
            <source>%1 fichiers de polices examinés</source>
            <translation>
                <numerusform>%1 font file examined</numerusform>
                <numerusform>%1 font files examined</numerusform>
            </translation>
        </message>
        <message>
            <source>Aucun doublon : %1.</source>
            <translation>No duplicate: %1.</translation>
        </message>
        <message>
            <source>%1 : %2, %3 récupérables en copies identiques.</source>
            <translation>%1: %2, %3 can be freed in identical copies.</translation>
        </message>
        <message numerus="yes">
            <source>%1 groupes</source>
            <translation>
                <numerusform>%1 group</numerusform>
                <numerusform>%1 groups</numerusform>
            </translation>
        </message>
        <message>
            <source>L’index ne peut pas être lu : il est endommagé, ou d’une autre version de Kerlune. « kerlune index » le refait.</source>
            <translation>The index cannot be read: it is damaged, or of another version of Kerlune. “kerlune index” makes it again.</translation>
        </message>
        <message>
            <source>L’index est vide ; « kerlune index » le remplit.</source>
            <translation>The index is empty; “kerlune index” fills it.</translation>
        </message>
        <message>
            <source>La bibliothèque est vide : aucune police n’est disponible.</source>
            <translation>The library is empty: no font is available.</translation>
        </message>
        <message>
            <source>Aucune famille ne correspond. Filtres : %1.</source>
            <translation>No family matches. Filters: %1.</translation>
        </message>
        <message>
            <source>Aucune famille ne correspond. Sélection : %1. Filtres : %2.</source>
            <translation>No family matches. Selection: %1. Filters: %2.</translation>
        </message>
        <message>
            <source>Les catalogues en ligne n’existent pas encore : rien n’est restreint.</source>
            <translation>The online catalogues do not exist yet: nothing is narrowed.</translation>
        </message>
        <message numerus="yes">
            <source>%1 graisses</source>
            <translation>
                <numerusform>%1 style</numerusform>
                <numerusform>%1 styles</numerusform>
            </translation>
        </message>
        <message>
            <source>Filtres</source>
            <translation>Filters</translation>
        </message>
        <message>
            <source>TEXTE</source>
            <translation>TEXT</translation>
        </message>
        <message>
            <source>Le nom, un nom PostScript, la fonderie ou l’auteur contient ce texte.</source>
            <translation>The name, a PostScript name, the foundry or the designer contains this text.</translation>
        </message>
        <message>
            <source>CLASSE</source>
            <translation>CLASS</translation>
        </message>
        <message>
            <source>Classes : %1.</source>
            <translation>Classes: %1.</translation>
        </message>
        <message>
            <source>Polices variables.</source>
            <translation>Variable fonts.</translation>
        </message>
        <message>
            <source>Polices à chasse fixe.</source>
            <translation>Fixed-pitch fonts.</translation>
        </message>
        <message>
            <source>Polices en couleur.</source>
            <translation>Color fonts.</translation>
        </message>
        <message>
            <source>Seulement les italiques.</source>
            <translation>Italics only.</translation>
        </message>
        <message>
            <source>Sans les italiques.</source>
            <translation>Without italics.</translation>
        </message>
        <message>
            <source>LANGUE</source>
            <translation>LANGUAGE</translation>
        </message>
        <message>
            <source>Langues et jeux de signes que la famille couvre tous (voir le manuel).</source>
            <translation>Languages and character sets, all of which the family covers (see the manual).</translation>
        </message>
        <message>
            <source>MIN-MAX</source>
            <translation>MIN-MAX</translation>
        </message>
        <message>
            <source>Graisses de 100 à 900 : 400 ou 300-700.</source>
            <translation>Weights from 100 to 900: 400 or 300-700.</translation>
        </message>
        <message>
            <source>Polices dont l’intégration est interdite.</source>
            <translation>Fonts whose embedding is forbidden.</translation>
        </message>
        <message>
            <source>La police a tous ces caractères.</source>
            <translation>The font has all these characters.</translation>
        </message>
        <message>
            <source>TAG</source>
            <translation>TAG</translation>
        </message>
        <message>
            <source>La famille porte tous ces tags.</source>
            <translation>The family carries all these tags.</translation>
        </message>
        <message>
            <source>Classe inconnue : « %1 ». Les classes sont : %2.</source>
            <translation>Unknown class: “%1”. The classes are: %2.</translation>
        </message>
        <message>
            <source>Langue inconnue : « %1 ». Les langues sont : %2.</source>
            <translation>Unknown language: “%1”. The languages are: %2.</translation>
        </message>
        <message>
            <source>Graisse incorrecte : « %1 ». Il faut un nombre entier de 100 à 900, ou deux, le plus petit d’abord, comme 300-700.</source>
            <translation>Wrong weight: “%1”. It must be a whole number from 100 to 900, or two, the smaller one first, such as 300-700.</translation>
        </message>
        <message>
            <source>Usage : kerlune folders [list | add CHEMIN | remove CHEMIN-OU-ID | auto CHEMIN-OU-ID on|off | rescan]</source>
            <translation>Usage: kerlune folders [list | add PATH | remove PATH-OR-ID | auto PATH-OR-ID on|off | rescan]</translation>
        </message>
        <message>
            <source>, bibliothèque de Kerlune</source>
            <translation>, Kerlune’s library</translation>
        </message>
        <message>
            <source>, activation automatique</source>
            <translation>, activated automatically</translation>
        </message>
        <message>
            <source>, introuvable</source>
            <translation>, not found</translation>
        </message>
        <message numerus="yes">
            <source>%1 polices</source>
            <translation>
                <numerusform>%1 font</numerusform>
                <numerusform>%1 fonts</numerusform>
            </translation>
        </message>
        <message>
            <source>Aucun dossier surveillé ; « kerlune folders add CHEMIN » en ajoute un.</source>
            <translation>No watched folder; “kerlune folders add PATH” adds one.</translation>
        </message>
        <message>
            <source>Aucun dossier surveillé ne correspond à « %1 ».</source>
            <translation>No watched folder matches “%1”.</translation>
        </message>
        <message>
            <source>« %1 » n’est pas un dossier, ou n’existe pas.</source>
            <translation>“%1” is not a folder, or does not exist.</translation>
        </message>
        <message>
            <source>Lecture de %1…</source>
            <translation>Reading %1…</translation>
        </message>
        <message numerus="yes">
            <source>%1 polices trouvées.</source>
            <translation>
                <numerusform>%1 font found.</numerusform>
                <numerusform>%1 fonts found.</numerusform>
            </translation>
        </message>
        <message>
            <source>La bibliothèque de Kerlune ne peut pas être retirée.</source>
            <translation>Kerlune’s library cannot be removed.</translation>
        </message>
        <message>
            <source>Activation incomplète : %1</source>
            <translation>Incomplete activation: %1</translation>
        </message>
        <message>
            <source>« %1 » : il faut « on » ou « off ».</source>
            <translation>“%1”: it must be “on” or “off”.</translation>
        </message>
        <message>
            <source>Usage : kerlune google [catalog [--refresh] | preview FAMILLE | subsets | install FAMILLE | remove FAMILLE]</source>
            <translation>Usage: kerlune google [catalog [--refresh] | preview FAMILY | subsets | install FAMILY | remove FAMILY]</translation>
        </message>
        <message>
            <source>Lecture du catalogue Google Fonts…</source>
            <translation>Reading the Google Fonts catalogue…</translation>
        </message>
        <message>
            <source>Catalogue indisponible : %1</source>
            <translation>Catalogue unavailable: %1</translation>
        </message>
        <message>
            <source>Aucune famille « %1 » dans le catalogue Google Fonts.</source>
            <translation>No family “%1” in the Google Fonts catalogue.</translation>
        </message>
        <message numerus="yes">
            <source>%1 styles</source>
            <translation>
                <numerusform>%1 style</numerusform>
                <numerusform>%1 styles</numerusform>
            </translation>
        </message>
        <message>
            <source>, variable</source>
            <translation>, variable</translation>
        </message>
        <message>
            <source>, installée</source>
            <translation>, installed</translation>
        </message>
        <message>
            <source>Aucun aperçu de « %1 » n’a pu être obtenu.</source>
            <translation>No preview of “%1” could be had.</translation>
        </message>
        <message>
            <source>Téléchargement des échantillons…</source>
            <translation>Downloading samples…</translation>
        </message>
        <message numerus="yes">
            <source>%1 familles n’ont pas pu être préparées.</source>
            <translation>
                <numerusform>%1 family could not be prepared.</numerusform>
                <numerusform>%1 families could not be prepared.</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 familles prêtes à comparer</source>
            <translation>
                <numerusform>%1 family ready to compare</numerusform>
                <numerusform>%1 families ready to compare</numerusform>
            </translation>
        </message>
        <message>
            <source>Téléchargement interrompu.</source>
            <translation>Download interrupted.</translation>
        </message>
        <message>
            <source>Installation de « %1 »…</source>
            <translation>Installing “%1”…</translation>
        </message>
        <message numerus="yes">
            <source>%1 fichiers ni TrueType ni OpenType (Type 1, bitmap…) ne sont pas indexés.</source>
            <translation>
                <numerusform>%1 file that is neither TrueType nor OpenType (Type 1, bitmap…) is not indexed.</numerusform>
                <numerusform>%1 files that are neither TrueType nor OpenType (Type 1, bitmap…) are not indexed.</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 polices écartées :</source>
            <translation>
                <numerusform>%1 font left out:</numerusform>
                <numerusform>%1 fonts left out:</numerusform>
            </translation>
        </message>
        <message>
            <source>… (« kerlune index --json » les nomme toutes)</source>
            <translation>… (“kerlune index --json” names all of them)</translation>
        </message>
        <message>
            <source>%1 dans %2, lues en %3 s</source>
            <translation>%1 in %2, read in %3 s</translation>
        </message>
        <message>
            <source>Analyse</source>
            <translation>Reading</translation>
        </message>
        <message>
            <source>Les polices du système ne peuvent pas être lues. %1 : %2</source>
            <translation>The system’s fonts cannot be read. %1: %2</translation>
        </message>
        <message>
            <source>Aucune police : fontconfig n’en propose aucune. Installez des polices ou vérifiez sa configuration (« fc-list » donne ce qu’il trouve).</source>
            <translation>No font: fontconfig offers none. Install fonts or check its configuration (“fc-list” tells what it finds).</translation>
        </message>
        <message>
            <source>Aucune police lisible : toutes ont été écartées.</source>
            <translation>No readable font: all were left out.</translation>
        </message>
        <message>
            <source>L’index précédent est conservé.</source>
            <translation>The former index is kept.</translation>
        </message>
        <message>
            <source>Lecture des dossiers surveillés…</source>
            <translation>Reading the watched folders…</translation>
        </message>
        <message>
            <source>La liste des dossiers surveillés (watched-folders.json) ne peut pas être lue : elle compte comme vide. Le fichier n’a pas été modifié ; le prochain changement de la liste en gardera une copie.</source>
            <translation>The list of watched folders (watched-folders.json) cannot be read: it counts as empty. The file was not changed; the next change of the list will keep a copy of it.</translation>
        </message>
        <message>
            <source>Aucune police « %1 » dans la bibliothèque.</source>
            <translation>No font “%1” in the library.</translation>
        </message>
        <message>
            <source>Donnez le nom PostScript d’une police ; « kerlune faces » les affiche.</source>
            <translation>Give the PostScript name of a font; “kerlune faces” shows them.</translation>
        </message>
        <message>
            <source>Plusieurs collections s’appellent « %1 » ; donnez l’un des identifiants : %2.</source>
            <translation>Several collections are called “%1”; give one of the ids: %2.</translation>
        </message>
        <message>
            <source>Plusieurs familles s’appellent « %1 » à la casse près : %2.</source>
            <translation>Several families are called “%1” but for the case: %2.</translation>
        </message>
        <message>
            <source>La famille « %1 » n’y est pas.</source>
            <translation>The family “%1” is not there.</translation>
        </message>
        <message>
            <source>Aucune collection « %1 ».</source>
            <translation>No collection “%1”.</translation>
        </message>
        <message>
            <source>Aucune collection intelligente « %1 ».</source>
            <translation>No smart collection “%1”.</translation>
        </message>
        <message>
            <source>Les filtres de « %1 » ne peuvent pas être lus : ils sont endommagés, ou d’une version plus récente de Kerlune.</source>
            <translation>The filters of “%1” cannot be read: they are damaged, or of a newer version of Kerlune.</translation>
        </message>
        <message>
            <source>Sélection incorrecte : « %1 ». Il faut all, favorites, recents, variable, color, duplicates, class:CLASSE, collection:ID-OU-NOM, folder:ID-OU-CHEMIN, tag:TAG, smart:ID-OU-NOM, adobeFonts ou googleFonts ; les classes sont %2.</source>
            <translation>Wrong selection: “%1”. It must be all, favorites, recents, variable, color, duplicates, class:CLASS, collection:ID-OR-NAME, folder:ID-OR-PATH, tag:TAG, smart:ID-OR-NAME, adobeFonts or googleFonts; the classes are %2.</translation>
        </message>
        <message>
            <source>« %1 » n’a pas d’empreinte : il lui manque trop de lettres parmi a, e, g, n, o et R, ou ses capitales n’ont pas de hauteur.</source>
            <translation>“%1” has no fingerprint: it lacks too many of the letters a, e, g, n, o and R, or its capitals have no height.</translation>
        </message>
        <message>
            <source>Analyse visuelle de la bibliothèque…</source>
            <translation>Visual analysis of the library…</translation>
        </message>
        <message>
            <source>--limit demande un nombre entier à partir de 0.</source>
            <translation>--limit takes a whole number from 0 on.</translation>
        </message>
        <message>
            <source>Aucune correspondance trouvée.</source>
            <translation>No match found.</translation>
        </message>
        <message>
            <source>Usage : kerlune smart [list | save NOM FILTRES | update ID FILTRES | rename ID NOM | delete ID]</source>
            <translation>Usage: kerlune smart [list | save NAME FILTERS | update ID FILTERS | rename ID NAME | delete ID]</translation>
        </message>
        <message numerus="yes">
            <source>%1 collections intelligentes ne peuvent pas être lues : </source>
            <translation>
                <numerusform>%1 smart collection cannot be read: </numerusform>
                <numerusform>%1 smart collections cannot be read: </numerusform>
            </translation>
        </message>
        <message>
            <source>Il faut au moins un filtre.</source>
            <translation>At least one filter is needed.</translation>
        </message>
        <message>
            <source>« %1 » ne prend pas de filtre.</source>
            <translation>“%1” takes no filter.</translation>
        </message>
        <message>
            <source>Le disque est plein. L’index précédent est conservé.</source>
            <translation>The disk is full. The former index is kept.</translation>
        </message>
        <message>
            <source>Vérifiez que ce dossier existe et que vous pouvez y écrire.</source>
            <translation>Check that this folder exists and that you may write there.</translation>
        </message>
        <message>
            <source>Ce fichier n’est pas une base de données. Il n’a pas été modifié ; déplacez-le pour que Kerlune en crée une nouvelle.</source>
            <translation>This file is not a database. It was not changed; move it so that Kerlune makes a new one.</translation>
        </message>
        <message>
            <source>La base de données est endommagée. Mettez-la de côté avant d’en créer une nouvelle : elle contient vos favoris, collections et tags.</source>
            <translation>The database is damaged. Put it aside before a new one is made: it holds your favorites, collections and tags.</translation>
        </message>
        <message>
            <source>Un autre programme écrit dans l’index. Réessayez dans un instant.</source>
            <translation>Another program writes to the index. Try again in a moment.</translation>
        </message>
        <message>
            <source>Écriture impossible : le disque est plein. Rien n’a changé.</source>
            <translation>Cannot write: the disk is full. Nothing has changed.</translation>
        </message>
        <message>
            <source>Écriture impossible : la base de données n’accepte pas la modification. Elle est endommagée, protégée ou occupée par un autre programme. Rien n’a changé.</source>
            <translation>Cannot write: the database does not accept the change. It is damaged, protected or in use by another program. Nothing has changed.</translation>
        </message>
        <message>
            <source>Usage : kerlune tags [list | add TAG FAMILLE… | remove TAG FAMILLE… | rename TAG NOUVEAU | delete TAG]</source>
            <translation>Usage: kerlune tags [list | add TAG FAMILY… | remove TAG FAMILY… | rename TAG NEW | delete TAG]</translation>
        </message>
        <message>
            <source>Un tag ne peut pas être vide.</source>
            <translation>A tag cannot be empty.</translation>
        </message>
        <message>
            <source>Aucun tag « %1 ».</source>
            <translation>No tag “%1”.</translation>
        </message>
        <message>
            <source>Le tag « %1 » existait déjà : les deux n’en font plus qu’un.</source>
            <translation>The tag “%1” was there already: the two are one now.</translation>
        </message>
        <message numerus="yes">
            <source>%1 familles favorites.</source>
            <translation>
                <numerusform>%1 favorite family.</numerusform>
                <numerusform>%1 favorite families.</numerusform>
            </translation>
        </message>
        <message>
            <source>Usage : kerlune favorites [list | add FAMILLE… | remove FAMILLE…]</source>
            <translation>Usage: kerlune favorites [list | add FAMILY… | remove FAMILY…]</translation>
        </message>
        <message>
            <source>Usage : kerlune recents [list | add FAMILLE…]</source>
            <translation>Usage: kerlune recents [list | add FAMILY…]</translation>
        </message>
        <message>
            <source>Enregistrement de « %1 » impossible : %2</source>
            <translation>“%1” cannot be saved: %2</translation>
        </message>
        <message>
            <source>Aucune police n'a pu être téléchargée. Vérifiez votre connexion.</source>
            <translation>No font could be downloaded. Check your connection.</translation>
        </message>
        <message>
            <source>Sans serif</source>
            <translation>Sans serif</translation>
        </message>
        <message>
            <source>Manuscrite</source>
            <translation>Handwriting</translation>
        </message>
        <message>
            <source>Toutes les catégories</source>
            <translation>All categories</translation>
        </message>
        <message>
            <source>Google Fonts a répondu par une erreur (%1).</source>
            <translation>Google Fonts answered with an error (%1).</translation>
        </message>
        <message>
            <source>Google Fonts ne propose aucun fichier pour « %1 ».</source>
            <translation>Google Fonts offers no file for “%1”.</translation>
        </message>
        <message>
            <source>Le fichier « %1 » n'est pas une police valide.</source>
            <translation>The file “%1” is not a valid font.</translation>
        </message>
        <message>
            <source>Le catalogue Google Fonts est illisible : son format a peut-être changé.</source>
            <translation>The Google Fonts catalogue cannot be read: its format may have changed.</translation>
        </message>
        <message>
            <source>La réponse de Google Fonts n’est pas du JSON valide.</source>
            <translation>The answer of Google Fonts is not valid JSON.</translation>
        </message>
        <message>
            <source>la connexion a été coupée.</source>
            <translation>the connection was cut.</translation>
        </message>
        <message>
            <source>L’adresse de « %1 » n’est pas en HTTPS.</source>
            <translation>The address of “%1” is not HTTPS.</translation>
        </message>
        <message>
            <source>Aucune réponse complète de « %1 » : %2</source>
            <translation>No complete answer from “%1”: %2</translation>
        </message>
        <message>
            <source>« %1 » n’a pas répondu à temps.</source>
            <translation>“%1” did not answer in time.</translation>
        </message>
        <message>
            <source>La réponse de « %1 » est trop longue.</source>
            <translation>The answer of “%1” is too long.</translation>
        </message>
        <message>
            <source>%1 (%2 fichiers)</source>
            <translation>%1 (%2 files)</translation>
        </message>
        <message>
            <source>Conflits de nom PostScript</source>
            <translation>PostScript name conflicts</translation>
        </message>
        <message>
            <source>Fichiers identiques</source>
            <translation>Identical files</translation>
        </message>
        <message>
            <source>Versions différentes</source>
            <translation>Different versions</translation>
        </message>
        <message>
            <source>Deux fichiers différents portent le même nom PostScript. Adobe n'en verra qu'un, et pas forcément le bon : c'est la cause la plus fréquente des polices qui « disparaissent ».</source>
            <translation>Two different files have the same PostScript name. Adobe will see only one of them, and not always the right one: this is the most frequent cause of fonts that “disappear”.</translation>
        </message>
        <message>
            <source>Fichiers strictement identiques (même empreinte SHA-256). Sans danger, mais ils occupent de la place pour rien.</source>
            <translation>Strictly identical files (same SHA-256 digest). Harmless, but they take up room for nothing.</translation>
        </message>
        <message>
            <source>Plusieurs versions de la même police coexistent. Gardez la plus récente pour éviter des rendus différents d'un poste à l'autre.</source>
            <translation>Several versions of the same font exist side by side. Keep the newest one to avoid different results from one computer to another.</translation>
        </message>
        <message>
            <source>Lecture %1 / %2</source>
            <translation>Reading %1 / %2</translation>
        </message>
        <message>
            <source>Empreintes %1 / %2</source>
            <translation>Digests %1 / %2</translation>
        </message>
        <message>
            <source>Inventaire des fichiers…</source>
            <translation>Listing the files…</translation>
        </message>
        <message>
            <source>Recherche des conflits de nom…</source>
            <translation>Looking for name conflicts…</translation>
        </message>
        <message>
            <source>Comparaison des fichiers…</source>
            <translation>Comparing the files…</translation>
        </message>
        <message>
            <source>Bibliothèque Kerlune</source>
            <translation>Kerlune library</translation>
        </message>
        <message>
            <source>Ce dossier est déjà surveillé.</source>
            <translation>This folder is watched already.</translation>
        </message>
        <message>
            <source>Les dossiers de polices du système sont déjà gérés par macOS.</source>
            <translation>The system’s font folders are already managed by macOS.</translation>
        </message>
        <message>
            <source>Aucune police (OTF, TTF, TTC, DFONT) dans ce dossier.</source>
            <translation>No font (OTF, TTF, TTC, DFONT) in this folder.</translation>
        </message>
        <message>
            <source>Ce dossier est déjà couvert par « %1 ».</source>
            <translation>This folder is already covered by “%1”.</translation>
        </message>
        <message>
            <source>« %1 » est tenu par un autre programme</source>
            <translation>“%1” is held by another program</translation>
        </message>
        <message>
            <source>aucune copie du fichier illisible ne peut être gardée (%1)</source>
            <translation>no copy of the unreadable file can be kept (%1)</translation>
        </message>
        <message>
            <source>fichier déjà refermé</source>
            <translation>file already closed</translation>
        </message>
        <message>
            <source>Intégration libre</source>
            <translation>Embedding allowed</translation>
        </message>
        <message>
            <source>Intégration interdite</source>
            <translation>Embedding forbidden</translation>
        </message>
        <message>
            <source>Aperçu et impression seulement</source>
            <translation>Preview and print only</translation>
        </message>
        <message>
            <source>Intégration modifiable</source>
            <translation>Editable embedding</translation>
        </message>
        <message>
            <source>Inconnu</source>
            <translation>Unknown</translation>
        </message>
        <message>
            <source>Serif</source>
            <translation>Serif</translation>
        </message>
        <message>
            <source>Slab</source>
            <translation>Slab</translation>
        </message>
        <message>
            <source>Monospace</source>
            <translation>Monospace</translation>
        </message>
        <message>
            <source>Script</source>
            <translation>Script</translation>
        </message>
        <message>
            <source>Display</source>
            <translation>Display</translation>
        </message>
        <message>
            <source>Fantaisie</source>
            <translation>Decorative</translation>
        </message>
        <message>
            <source>Non classée</source>
            <translation>Unclassified</translation>
        </message>
        <message>
            <source>Latin de base</source>
            <translation>Basic Latin</translation>
        </message>
        <message>
            <source>Latin</source>
            <translation>Latin</translation>
        </message>
        <message>
            <source>Français</source>
            <translation>French</translation>
        </message>
        <message>
            <source>Allemand</source>
            <translation>German</translation>
        </message>
        <message>
            <source>Espagnol</source>
            <translation>Spanish</translation>
        </message>
        <message>
            <source>Portugais</source>
            <translation>Portuguese</translation>
        </message>
        <message>
            <source>Italien</source>
            <translation>Italian</translation>
        </message>
        <message>
            <source>Scandinave</source>
            <translation>Scandinavian</translation>
        </message>
        <message>
            <source>Polonais</source>
            <translation>Polish</translation>
        </message>
        <message>
            <source>Tchèque</source>
            <translation>Czech</translation>
        </message>
        <message>
            <source>Hongrois</source>
            <translation>Hungarian</translation>
        </message>
        <message>
            <source>Roumain</source>
            <translation>Romanian</translation>
        </message>
        <message>
            <source>Turc</source>
            <translation>Turkish</translation>
        </message>
        <message>
            <source>Vietnamien</source>
            <translation>Vietnamese</translation>
        </message>
        <message>
            <source>Balte</source>
            <translation>Baltic</translation>
        </message>
        <message>
            <source>Cyrillique</source>
            <translation>Cyrillic</translation>
        </message>
        <message>
            <source>Ecritures</source>
            <translation>Scripts</translation>
        </message>
        <message>
            <source>Grec</source>
            <translation>Greek</translation>
        </message>
        <message>
            <source>Arabe</source>
            <translation>Arabic</translation>
        </message>
        <message>
            <source>Hébreu</source>
            <translation>Hebrew</translation>
        </message>
        <message>
            <source>Devanagari</source>
            <translation>Devanagari</translation>
        </message>
        <message>
            <source>Thaï</source>
            <translation>Thai</translation>
        </message>
        <message>
            <source>Japonais (kana)</source>
            <translation>Japanese (kana)</translation>
        </message>
        <message>
            <source>Coréen (hangul)</source>
            <translation>Korean (Hangul)</translation>
        </message>
        <message>
            <source>Chinois</source>
            <translation>Chinese</translation>
        </message>
        <message>
            <source>Ponctuation fine</source>
            <translation>Fine punctuation</translation>
        </message>
        <message>
            <source>Typographie</source>
            <translation>Typography</translation>
        </message>
        <message>
            <source>Devises</source>
            <translation>Currencies</translation>
        </message>
        <message>
            <source>Maths</source>
            <translation>Mathematics</translation>
        </message>
        <message>
            <source>Flèches</source>
            <translation>Arrows</translation>
        </message>
        <message>
            <source>Fractions</source>
            <translation>Fractions</translation>
        </message>
        <message>
            <source>Ligatures</source>
            <translation>Ligatures</translation>
        </message>
        <message>
            <source>Tamoul</source>
            <translation>Tamil</translation>
        </message>
        <message>
            <source>Bengali</source>
            <translation>Bengali</translation>
        </message>
        <message>
            <source>Gujarati</source>
            <translation>Gujarati</translation>
        </message>
        <message>
            <source>Télougou</source>
            <translation>Telugu</translation>
        </message>
        <message>
            <source>Kannada</source>
            <translation>Kannada</translation>
        </message>
        <message>
            <source>Malayalam</source>
            <translation>Malayalam</translation>
        </message>
        <message>
            <source>Gurmukhi</source>
            <translation>Gurmukhi</translation>
        </message>
        <message>
            <source>Cingalais</source>
            <translation>Sinhala</translation>
        </message>
        <message>
            <source>Arménien</source>
            <translation>Armenian</translation>
        </message>
        <message>
            <source>Géorgien</source>
            <translation>Georgian</translation>
        </message>
        <message>
            <source>Odia</source>
            <translation>Odia</translation>
        </message>
        <message>
            <source>Birman</source>
            <translation>Burmese</translation>
        </message>
        <message>
            <source>Lao</source>
            <translation>Lao</translation>
        </message>
        <message>
            <source>Khmer</source>
            <translation>Khmer</translation>
        </message>
        <message>
            <source>Écritures</source>
            <translation>Scripts</translation>
        </message>
        <message>
            <source>Graisse</source>
            <translation>Weight</translation>
        </message>
        <message>
            <source>Chasse</source>
            <translation>Width</translation>
        </message>
        <message>
            <source>Inclinaison</source>
            <translation>Slant</translation>
        </message>
        <message>
            <source>Italique</source>
            <translation>Italic</translation>
        </message>
        <message>
            <source>Corps optique</source>
            <translation>Optical Size</translation>
        </message>
        <message>
            <source>Toutes les variantes</source>
            <translation>Access All Alternates</translation>
        </message>
        <message>
            <source>Formes au-dessus de la base</source>
            <translation>Above-base Forms</translation>
        </message>
        <message>
            <source>Marques au-dessus</source>
            <translation>Above-base Mark Positioning</translation>
        </message>
        <message>
            <source>Substitutions au-dessus</source>
            <translation>Above-base Substitutions</translation>
        </message>
        <message>
            <source>Fractions alternatives</source>
            <translation>Alternative Fractions</translation>
        </message>
        <message>
            <source>Akhanda</source>
            <translation>Akhand</translation>
        </message>
        <message>
            <source>Crénage de la chasse proportionnelle</source>
            <translation>Kerning for Alternate Proportional Widths</translation>
        </message>
        <message>
            <source>Formes sous la base</source>
            <translation>Below-base Forms</translation>
        </message>
        <message>
            <source>Marques au-dessous</source>
            <translation>Below-base Mark Positioning</translation>
        </message>
        <message>
            <source>Substitutions au-dessous</source>
            <translation>Below-base Substitutions</translation>
        </message>
        <message>
            <source>Très petites capitales pour les capitales</source>
            <translation>Petite Capitals From Capitals</translation>
        </message>
        <message>
            <source>Petites capitales pour les capitales</source>
            <translation>Small Capitals From Capitals</translation>
        </message>
        <message>
            <source>Variantes contextuelles</source>
            <translation>Contextual Alternates</translation>
        </message>
        <message>
            <source>Formes selon la casse</source>
            <translation>Case-sensitive Forms</translation>
        </message>
        <message>
            <source>Composition et décomposition</source>
            <translation>Glyph Composition / Decomposition</translation>
        </message>
        <message>
            <source>Formes conjointes après ra</source>
            <translation>Conjunct Form After Ro</translation>
        </message>
        <message>
            <source>Chasse demi-cadratin contextuelle</source>
            <translation>Contextual Half-width Spacing</translation>
        </message>
        <message>
            <source>Formes conjointes</source>
            <translation>Conjunct Forms</translation>
        </message>
        <message>
            <source>Ligatures contextuelles</source>
            <translation>Contextual Ligatures</translation>
        </message>
        <message>
            <source>Ponctuation CJC centrée</source>
            <translation>Centered CJK Punctuation</translation>
        </message>
        <message>
            <source>Approche des capitales</source>
            <translation>Capital Spacing</translation>
        </message>
        <message>
            <source>Lettres ornées contextuelles</source>
            <translation>Contextual Swash</translation>
        </message>
        <message>
            <source>Attaches cursives</source>
            <translation>Cursive Positioning</translation>
        </message>
        <message>
            <source>Distances</source>
            <translation>Distances</translation>
        </message>
        <message>
            <source>Ligatures facultatives</source>
            <translation>Discretionary Ligatures</translation>
        </message>
        <message>
            <source>Dénominateurs</source>
            <translation>Denominators</translation>
        </message>
        <message>
            <source>Formes sans point</source>
            <translation>Dotless Forms</translation>
        </message>
        <message>
            <source>Formes d’expert</source>
            <translation>Expert Forms</translation>
        </message>
        <message>
            <source>Dernier glyphe de la ligne</source>
            <translation>Final Glyph on Line Alternates</translation>
        </message>
        <message>
            <source>Formes finales 2</source>
            <translation>Terminal Forms #2</translation>
        </message>
        <message>
            <source>Formes finales 3</source>
            <translation>Terminal Forms #3</translation>
        </message>
        <message>
            <source>Formes finales</source>
            <translation>Terminal Forms</translation>
        </message>
        <message>
            <source>Accents aplatis sur capitales</source>
            <translation>Flattened Accent Forms</translation>
        </message>
        <message>
            <source>Pleine chasse</source>
            <translation>Full Widths</translation>
        </message>
        <message>
            <source>Demi-formes</source>
            <translation>Half Forms</translation>
        </message>
        <message>
            <source>Formes halant</source>
            <translation>Halant Forms</translation>
        </message>
        <message>
            <source>Demi-chasse alternative</source>
            <translation>Alternate Half Widths</translation>
        </message>
        <message>
            <source>Formes historiques</source>
            <translation>Historical Forms</translation>
        </message>
        <message>
            <source>Kana horizontaux</source>
            <translation>Horizontal Kana Alternates</translation>
        </message>
        <message>
            <source>Ligatures historiques</source>
            <translation>Historical Ligatures</translation>
        </message>
        <message>
            <source>Hangûl</source>
            <translation>Hangul</translation>
        </message>
        <message>
            <source>Kanji Hojo</source>
            <translation>Hojo Kanji Forms</translation>
        </message>
        <message>
            <source>Demi-chasse</source>
            <translation>Half Widths</translation>
        </message>
        <message>
            <source>Formes initiales</source>
            <translation>Initial Forms</translation>
        </message>
        <message>
            <source>Formes isolées</source>
            <translation>Isolated Forms</translation>
        </message>
        <message>
            <source>Italiques</source>
            <translation>Italics</translation>
        </message>
        <message>
            <source>Variantes de justification</source>
            <translation>Justification Alternates</translation>
        </message>
        <message>
            <source>Formes JIS2004</source>
            <translation>JIS2004 Forms</translation>
        </message>
        <message>
            <source>Formes JIS78</source>
            <translation>JIS78 Forms</translation>
        </message>
        <message>
            <source>Formes JIS83</source>
            <translation>JIS83 Forms</translation>
        </message>
        <message>
            <source>Formes JIS90</source>
            <translation>JIS90 Forms</translation>
        </message>
        <message>
            <source>Crénage</source>
            <translation>Kerning</translation>
        </message>
        <message>
            <source>Limite gauche</source>
            <translation>Left Bounds</translation>
        </message>
        <message>
            <source>Ligatures usuelles</source>
            <translation>Standard Ligatures</translation>
        </message>
        <message>
            <source>Jamos initiaux</source>
            <translation>Leading Jamo Forms</translation>
        </message>
        <message>
            <source>Chiffres Didot</source>
            <translation>Lining Figures</translation>
        </message>
        <message>
            <source>Formes locales</source>
            <translation>Localized Forms</translation>
        </message>
        <message>
            <source>Variantes de gauche à droite</source>
            <translation>Left-to-right Alternates</translation>
        </message>
        <message>
            <source>Formes en miroir de gauche à droite</source>
            <translation>Left-to-right Mirrored Forms</translation>
        </message>
        <message>
            <source>Placement des marques</source>
            <translation>Mark Positioning</translation>
        </message>
        <message>
            <source>Formes médianes 2</source>
            <translation>Medial Forms #2</translation>
        </message>
        <message>
            <source>Formes médianes</source>
            <translation>Medial Forms</translation>
        </message>
        <message>
            <source>Lettres grecques mathématiques</source>
            <translation>Mathematical Greek</translation>
        </message>
        <message>
            <source>Marques sur marques</source>
            <translation>Mark to Mark Positioning</translation>
        </message>
        <message>
            <source>Placement des marques par substitution</source>
            <translation>Mark Positioning via Substitution</translation>
        </message>
        <message>
            <source>Annotations</source>
            <translation>Alternate Annotation Forms</translation>
        </message>
        <message>
            <source>Kanji NLC</source>
            <translation>NLC Kanji Forms</translation>
        </message>
        <message>
            <source>Formes nukta</source>
            <translation>Nukta Forms</translation>
        </message>
        <message>
            <source>Numérateurs</source>
            <translation>Numerators</translation>
        </message>
        <message>
            <source>Chiffres elzéviriens</source>
            <translation>Oldstyle Figures</translation>
        </message>
        <message>
            <source>Limites optiques</source>
            <translation>Optical Bounds</translation>
        </message>
        <message>
            <source>Ordinaux</source>
            <translation>Ordinals</translation>
        </message>
        <message>
            <source>Ornements</source>
            <translation>Ornaments</translation>
        </message>
        <message>
            <source>Chasse proportionnelle alternative</source>
            <translation>Proportional Alternate Widths</translation>
        </message>
        <message>
            <source>Très petites capitales</source>
            <translation>Petite Capitals</translation>
        </message>
        <message>
            <source>Kana proportionnels</source>
            <translation>Proportional Kana</translation>
        </message>
        <message>
            <source>Chiffres proportionnels</source>
            <translation>Proportional Figures</translation>
        </message>
        <message>
            <source>Formes avant la base</source>
            <translation>Pre-base Forms</translation>
        </message>
        <message>
            <source>Substitutions avant la base</source>
            <translation>Pre-base Substitutions</translation>
        </message>
        <message>
            <source>Formes après la base</source>
            <translation>Post-base Forms</translation>
        </message>
        <message>
            <source>Substitutions après la base</source>
            <translation>Post-base Substitutions</translation>
        </message>
        <message>
            <source>Chasse proportionnelle</source>
            <translation>Proportional Widths</translation>
        </message>
        <message>
            <source>Quart de chasse</source>
            <translation>Quarter Widths</translation>
        </message>
        <message>
            <source>Variantes au hasard</source>
            <translation>Randomize</translation>
        </message>
        <message>
            <source>Variantes contextuelles requises</source>
            <translation>Required Contextual Alternates</translation>
        </message>
        <message>
            <source>Formes rakar</source>
            <translation>Rakar Forms</translation>
        </message>
        <message>
            <source>Ligatures requises</source>
            <translation>Required Ligatures</translation>
        </message>
        <message>
            <source>Formes reph</source>
            <translation>Reph Forms</translation>
        </message>
        <message>
            <source>Limite droite</source>
            <translation>Right Bounds</translation>
        </message>
        <message>
            <source>Variantes de droite à gauche</source>
            <translation>Right-to-left Alternates</translation>
        </message>
        <message>
            <source>Formes en miroir de droite à gauche</source>
            <translation>Right-to-left Mirrored Forms</translation>
        </message>
        <message>
            <source>Formes pour annotations ruby</source>
            <translation>Ruby Notation Forms</translation>
        </message>
        <message>
            <source>Variantes requises de la variation</source>
            <translation>Required Variation Alternates</translation>
        </message>
        <message>
            <source>Variantes stylistiques</source>
            <translation>Stylistic Alternates</translation>
        </message>
        <message>
            <source>Inférieurs scientifiques</source>
            <translation>Scientific Inferiors</translation>
        </message>
        <message>
            <source>Petites capitales</source>
            <translation>Small Capitals</translation>
        </message>
        <message>
            <source>Formes simplifiées</source>
            <translation>Simplified Forms</translation>
        </message>
        <message>
            <source>Style des exposants mathématiques</source>
            <translation>Math Script-style Alternates</translation>
        </message>
        <message>
            <source>Étirement du glyphe</source>
            <translation>Stretching Glyph Decomposition</translation>
        </message>
        <message>
            <source>Indices</source>
            <translation>Subscript</translation>
        </message>
        <message>
            <source>Exposants</source>
            <translation>Superscript</translation>
        </message>
        <message>
            <source>Lettres ornées</source>
            <translation>Swash</translation>
        </message>
        <message>
            <source>Titrage</source>
            <translation>Titling</translation>
        </message>
        <message>
            <source>Jamos finaux</source>
            <translation>Trailing Jamo Forms</translation>
        </message>
        <message>
            <source>Formes traditionnelles des noms</source>
            <translation>Traditional Name Forms</translation>
        </message>
        <message>
            <source>Chiffres tabulaires</source>
            <translation>Tabular Figures</translation>
        </message>
        <message>
            <source>Formes traditionnelles</source>
            <translation>Traditional Forms</translation>
        </message>
        <message>
            <source>Tiers de chasse</source>
            <translation>Third Widths</translation>
        </message>
        <message>
            <source>Unicase</source>
            <translation>Unicase</translation>
        </message>
        <message>
            <source>Hauteurs de ligne verticales alternatives</source>
            <translation>Alternate Vertical Metrics</translation>
        </message>
        <message>
            <source>Crénage vertical de la chasse proportionnelle</source>
            <translation>Kerning for Alternate Proportional Vertical Metrics</translation>
        </message>
        <message>
            <source>Variantes vattu</source>
            <translation>Vattu Variants</translation>
        </message>
        <message>
            <source>Demi-cadratin vertical contextuel</source>
            <translation>Vertical Contextual Half-width Spacing</translation>
        </message>
        <message>
            <source>Variantes verticales</source>
            <translation>Vertical Alternates</translation>
        </message>
        <message>
            <source>Demi-chasse verticale alternative</source>
            <translation>Alternate Vertical Half Metrics</translation>
        </message>
        <message>
            <source>Jamos vocaliques</source>
            <translation>Vowel Jamo Forms</translation>
        </message>
        <message>
            <source>Kana verticaux</source>
            <translation>Vertical Kana Alternates</translation>
        </message>
        <message>
            <source>Crénage vertical</source>
            <translation>Vertical Kerning</translation>
        </message>
        <message>
            <source>Chasse verticale proportionnelle</source>
            <translation>Proportional Alternate Vertical Metrics</translation>
        </message>
        <message>
            <source>Variantes verticales et rotation</source>
            <translation>Vertical Alternates and Rotation</translation>
        </message>
        <message>
            <source>Variantes verticales à tourner</source>
            <translation>Vertical Alternates for Rotation</translation>
        </message>
        <message>
            <source>Zéro barré</source>
            <translation>Slashed Zero</translation>
        </message>
        <message>
            <source>Jeu stylistique %1</source>
            <translation>Stylistic Set %1</translation>
        </message>
        <message>
            <source>Variante de caractère %1</source>
            <translation>Character Variant %1</translation>
        </message>
        <message>
            <source>fichier introuvable</source>
            <translation>file not found</translation>
        </message>
        <message>
            <source>accès refusé</source>
            <translation>access denied</translation>
        </message>
        <message>
            <source>pas un fichier</source>
            <translation>not a file</translation>
        </message>
        <message>
            <source>erreur de lecture</source>
            <translation>read error</translation>
        </message>
        <message>
            <source>chemin trop long</source>
            <translation>path too long</translation>
        </message>
        <message>
            <source>nom de fichier qui n’est pas de l’UTF-8 valide</source>
            <translation>file name that is not valid UTF-8</translation>
        </message>
        <message>
            <source>format autre que TrueType et OpenType</source>
            <translation>format other than TrueType and OpenType</translation>
        </message>
        <message>
            <source>police endommagée</source>
            <translation>damaged font</translation>
        </message>
        <message>
            <source>police compressée de plus de 30 Mio</source>
            <translation>compressed font of more than 30 MiB</translation>
        </message>
        <message>
            <source>graisse absente du fichier</source>
            <translation>face not in the file</translation>
        </message>
        <message>
            <source>aucun nom PostScript lisible</source>
            <translation>no readable PostScript name</translation>
        </message>
        <message>
            <source>police masquée du système</source>
            <translation>hidden system font</translation>
        </message>
        <message>
            <source>cadratin de 0 unité</source>
            <translation>em of 0 units</translation>
        </message>
        <message>
            <source>lisible, mais refusée par la configuration des polices du système</source>
            <translation>readable, but refused by the system’s font configuration</translation>
        </message>
        <message>
            <source>tube sur lequel les programmes qui lisent les polices attendent sans fin ; retirez-le</source>
            <translation>pipe on which programs that read fonts wait for ever; remove it</translation>
        </message>
        <message>
            <source>lecture de plus de 2 secondes</source>
            <translation>reading takes more than 2 seconds</translation>
        </message>
        <message>
            <source>un autre programme l’utilise</source>
            <translation>another program uses it</translation>
        </message>
        <message>
            <source>Trop de changements à la fois dans les dossiers suivis : ils sont relus en entier.</source>
            <translation>Too many changes at once in the watched folders: they are read again as a whole.</translation>
        </message>
        <message>
            <source>Trop de sous-dossiers pour les suivre tous (voir fs.inotify.max_user_watches) : ils sont relus à intervalles réguliers.</source>
            <translation>Too many subfolders to follow all of them (see fs.inotify.max_user_watches): they are read again at intervals.</translation>
        </message>
        <message>
            <source>lien d’activation de Kerlune, pas le fichier de police lui-même</source>
            <translation>Kerlune’s activation link, not the font file itself</translation>
        </message>
        <message>
            <source>écriture refusée dans le dossier des polices actives</source>
            <translation>writing refused in the folder of active fonts</translation>
        </message>
        <message>
            <source>disque plein</source>
            <translation>disk full</translation>
        </message>
        <message>
            <source>nom déjà pris dans le dossier des polices actives</source>
            <translation>name already taken in the folder of active fonts</translation>
        </message>
        <message>
            <source>erreur du système dans le dossier des polices actives</source>
            <translation>system error in the folder of active fonts</translation>
        </message>
        <message>
            <source>« %1 » : %2</source>
            <translation>“%1”: %2</translation>
        </message>
        <message>
            <source>Supplément Latin-1</source>
            <translation>Latin-1 Supplement</translation>
        </message>
        <message>
            <source>Latin étendu A</source>
            <translation>Latin Extended-A</translation>
        </message>
        <message>
            <source>Latin étendu B</source>
            <translation>Latin Extended-B</translation>
        </message>
        <message>
            <source>Alphabet phonétique international</source>
            <translation>IPA Extensions</translation>
        </message>
        <message>
            <source>Lettres modificatives avec chasse</source>
            <translation>Spacing Modifier Letters</translation>
        </message>
        <message>
            <source>Diacritiques</source>
            <translation>Combining Diacritical Marks</translation>
        </message>
        <message>
            <source>Grec et copte</source>
            <translation>Greek and Coptic</translation>
        </message>
        <message>
            <source>Syriaque</source>
            <translation>Syriac</translation>
        </message>
        <message>
            <source>Thâna</source>
            <translation>Thaana</translation>
        </message>
        <message>
            <source>Dévanâgarî</source>
            <translation>Devanagari</translation>
        </message>
        <message>
            <source>Gourmoukhî</source>
            <translation>Gurmukhi</translation>
        </message>
        <message>
            <source>Goudjarati</source>
            <translation>Gujarati</translation>
        </message>
        <message>
            <source>Oriya</source>
            <translation>Oriya</translation>
        </message>
        <message>
            <source>Kannara</source>
            <translation>Kannada</translation>
        </message>
        <message>
            <source>Singhalais</source>
            <translation>Sinhala</translation>
        </message>
        <message>
            <source>Tibétain</source>
            <translation>Tibetan</translation>
        </message>
        <message>
            <source>Jamos hangûl</source>
            <translation>Hangul Jamo</translation>
        </message>
        <message>
            <source>Éthiopien</source>
            <translation>Ethiopic</translation>
        </message>
        <message>
            <source>Tchérokî</source>
            <translation>Cherokee</translation>
        </message>
        <message>
            <source>Syllabaires autochtones canadiens</source>
            <translation>Unified Canadian Aboriginal Syllabics</translation>
        </message>
        <message>
            <source>Ogam</source>
            <translation>Ogham</translation>
        </message>
        <message>
            <source>Runes</source>
            <translation>Runic</translation>
        </message>
        <message>
            <source>Mongol</source>
            <translation>Mongolian</translation>
        </message>
        <message>
            <source>Latin étendu additionnel</source>
            <translation>Latin Extended Additional</translation>
        </message>
        <message>
            <source>Grec étendu</source>
            <translation>Greek Extended</translation>
        </message>
        <message>
            <source>Ponctuation générale</source>
            <translation>General Punctuation</translation>
        </message>
        <message>
            <source>Exposants et indices</source>
            <translation>Superscripts and Subscripts</translation>
        </message>
        <message>
            <source>Symboles monétaires</source>
            <translation>Currency Symbols</translation>
        </message>
        <message>
            <source>Diacritiques pour symboles</source>
            <translation>Combining Diacritical Marks for Symbols</translation>
        </message>
        <message>
            <source>Symboles de type lettre</source>
            <translation>Letterlike Symbols</translation>
        </message>
        <message>
            <source>Formes numérales</source>
            <translation>Number Forms</translation>
        </message>
        <message>
            <source>Opérateurs mathématiques</source>
            <translation>Mathematical Operators</translation>
        </message>
        <message>
            <source>Signes techniques divers</source>
            <translation>Miscellaneous Technical</translation>
        </message>
        <message>
            <source>Pictogrammes de commande</source>
            <translation>Control Pictures</translation>
        </message>
        <message>
            <source>Reconnaissance optique de caractères</source>
            <translation>Optical Character Recognition</translation>
        </message>
        <message>
            <source>Alphanumériques cerclés</source>
            <translation>Enclosed Alphanumerics</translation>
        </message>
        <message>
            <source>Filets</source>
            <translation>Box Drawing</translation>
        </message>
        <message>
            <source>Pavés</source>
            <translation>Block Elements</translation>
        </message>
        <message>
            <source>Formes géométriques</source>
            <translation>Geometric Shapes</translation>
        </message>
        <message>
            <source>Symboles divers</source>
            <translation>Miscellaneous Symbols</translation>
        </message>
        <message>
            <source>Casseau</source>
            <translation>Dingbats</translation>
        </message>
        <message>
            <source>Combinaisons Braille</source>
            <translation>Braille Patterns</translation>
        </message>
        <message>
            <source>Formes supplémentaires des clés CJC</source>
            <translation>CJK Radicals Supplement</translation>
        </message>
        <message>
            <source>Clés chinoises Kangxi</source>
            <translation>Kangxi Radicals</translation>
        </message>
        <message>
            <source>Description idéographique</source>
            <translation>Ideographic Description Characters</translation>
        </message>
        <message>
            <source>Symboles et ponctuation CJC</source>
            <translation>CJK Symbols and Punctuation</translation>
        </message>
        <message>
            <source>Hiragana</source>
            <translation>Hiragana</translation>
        </message>
        <message>
            <source>Katakana</source>
            <translation>Katakana</translation>
        </message>
        <message>
            <source>Bopomofo</source>
            <translation>Bopomofo</translation>
        </message>
        <message>
            <source>Jamos de compatibilité hangûl</source>
            <translation>Hangul Compatibility Jamo</translation>
        </message>
        <message>
            <source>Kanboun</source>
            <translation>Kanbun</translation>
        </message>
        <message>
            <source>Bopomofo étendu</source>
            <translation>Bopomofo Extended</translation>
        </message>
        <message>
            <source>Lettres et mois CJC cerclés</source>
            <translation>Enclosed CJK Letters and Months</translation>
        </message>
        <message>
            <source>Compatibilité CJC</source>
            <translation>CJK Compatibility</translation>
        </message>
        <message>
            <source>Supplément A aux idéogrammes CJC</source>
            <translation>CJK Unified Ideographs Extension A</translation>
        </message>
        <message>
            <source>Idéogrammes unifiés CJC</source>
            <translation>CJK Unified Ideographs</translation>
        </message>
        <message>
            <source>Syllabaire yi</source>
            <translation>Yi Syllables</translation>
        </message>
        <message>
            <source>Clés yi</source>
            <translation>Yi Radicals</translation>
        </message>
        <message>
            <source>Syllabes hangûl</source>
            <translation>Hangul Syllables</translation>
        </message>
        <message>
            <source>Zone à usage privé</source>
            <translation>Private Use Area</translation>
        </message>
        <message>
            <source>Idéogrammes de compatibilité CJC</source>
            <translation>CJK Compatibility Ideographs</translation>
        </message>
        <message>
            <source>Formes de présentation alphabétiques</source>
            <translation>Alphabetic Presentation Forms</translation>
        </message>
        <message>
            <source>Formes A de présentation arabes</source>
            <translation>Arabic Presentation Forms-A</translation>
        </message>
        <message>
            <source>Demi-signes combinatoires</source>
            <translation>Combining Half Marks</translation>
        </message>
        <message>
            <source>Formes de compatibilité CJC</source>
            <translation>CJK Compatibility Forms</translation>
        </message>
        <message>
            <source>Petites variantes de forme</source>
            <translation>Small Form Variants</translation>
        </message>
        <message>
            <source>Formes B de présentation arabes</source>
            <translation>Arabic Presentation Forms-B</translation>
        </message>
        <message>
            <source>Caractères spéciaux</source>
            <translation>Specials</translation>
        </message>
        <message>
            <source>Formes demi-chasse et pleine chasse</source>
            <translation>Halfwidth and Fullwidth Forms</translation>
        </message>
        <message>
            <source>Alphabet italique</source>
            <translation>Old Italic</translation>
        </message>
        <message>
            <source>Gotique</source>
            <translation>Gothic</translation>
        </message>
        <message>
            <source>Symboles musicaux occidentaux</source>
            <translation>Musical Symbols</translation>
        </message>
        <message>
            <source>Symboles mathématiques alphanumériques</source>
            <translation>Mathematical Alphanumeric Symbols</translation>
        </message>
        <message>
            <source>Supplément B aux idéogrammes CJC</source>
            <translation>CJK Unified Ideographs Extension B</translation>
        </message>
        <message>
            <source>Supplément aux idéogrammes de compatibilité CJC</source>
            <translation>CJK Compatibility Ideographs Supplement</translation>
        </message>
        <message>
            <source>Étiquettes</source>
            <translation>Tags</translation>
        </message>
        <message>
            <source>Supplément cyrillique</source>
            <translation>Cyrillic Supplement</translation>
        </message>
        <message>
            <source>Divers symboles mathématiques A</source>
            <translation>Miscellaneous Mathematical Symbols-A</translation>
        </message>
        <message>
            <source>Supplément A de flèches</source>
            <translation>Supplemental Arrows-A</translation>
        </message>
        <message>
            <source>Supplément B de flèches</source>
            <translation>Supplemental Arrows-B</translation>
        </message>
        <message>
            <source>Divers symboles mathématiques B</source>
            <translation>Miscellaneous Mathematical Symbols-B</translation>
        </message>
        <message>
            <source>Opérateurs mathématiques supplémentaires</source>
            <translation>Supplemental Mathematical Operators</translation>
        </message>
        <message>
            <source>Extension phonétique katakana</source>
            <translation>Katakana Phonetic Extensions</translation>
        </message>
        <message>
            <source>Sélecteurs de variante</source>
            <translation>Variation Selectors</translation>
        </message>
        <message>
            <source>Zone supplémentaire A à usage privé</source>
            <translation>Supplementary Private Use Area-A</translation>
        </message>
        <message>
            <source>Zone supplémentaire B à usage privé</source>
            <translation>Supplementary Private Use Area-B</translation>
        </message>
        <message>
            <source>Supplément phonétique</source>
            <translation>Phonetic Extensions</translation>
        </message>
        <message>
            <source>Extensions du supplément phonétique</source>
            <translation>Phonetic Extensions Supplement</translation>
        </message>
        <message>
            <source>Symboles divers et flèches</source>
            <translation>Miscellaneous Symbols and Arrows</translation>
        </message>
        <message>
            <source>Hexagrammes du Yijing</source>
            <translation>Yijing Hexagram Symbols</translation>
        </message>
        <message>
            <source>Symboles du Tai Xuan Jing</source>
            <translation>Tai Xuan Jing Symbols</translation>
        </message>
        <message>
            <source>Supplément de sélecteurs de variante</source>
            <translation>Variation Selectors Supplement</translation>
        </message>
        <message>
            <source>Nombres grecs anciens</source>
            <translation>Ancient Greek Numbers</translation>
        </message>
        <message>
            <source>Supplément arabe</source>
            <translation>Arabic Supplement</translation>
        </message>
        <message>
            <source>Traits CJC</source>
            <translation>CJK Strokes</translation>
        </message>
        <message>
            <source>Supplément de diacritiques</source>
            <translation>Combining Diacritical Marks Supplement</translation>
        </message>
        <message>
            <source>Diacritiques étendus</source>
            <translation>Combining Diacritical Marks Extended</translation>
        </message>
        <message>
            <source>Copte</source>
            <translation>Coptic</translation>
        </message>
        <message>
            <source>Éthiopien étendu</source>
            <translation>Ethiopic Extended</translation>
        </message>
        <message>
            <source>Supplément éthiopien</source>
            <translation>Ethiopic Supplement</translation>
        </message>
        <message>
            <source>Supplément géorgien</source>
            <translation>Georgian Supplement</translation>
        </message>
        <message>
            <source>Géorgien étendu</source>
            <translation>Georgian Extended</translation>
        </message>
        <message>
            <source>Glagolitique</source>
            <translation>Glagolitic</translation>
        </message>
        <message>
            <source>Lettres modificatives de ton</source>
            <translation>Modifier Tone Letters</translation>
        </message>
        <message>
            <source>Ponctuation complémentaire</source>
            <translation>Supplemental Punctuation</translation>
        </message>
        <message>
            <source>Tifinagh</source>
            <translation>Tifinagh</translation>
        </message>
        <message>
            <source>Formes verticales</source>
            <translation>Vertical Forms</translation>
        </message>
        <message>
            <source>N’ko</source>
            <translation>NKo</translation>
        </message>
        <message>
            <source>Latin étendu C</source>
            <translation>Latin Extended-C</translation>
        </message>
        <message>
            <source>Latin étendu D</source>
            <translation>Latin Extended-D</translation>
        </message>
        <message>
            <source>Latin étendu E</source>
            <translation>Latin Extended-E</translation>
        </message>
        <message>
            <source>Latin étendu F</source>
            <translation>Latin Extended-F</translation>
        </message>
        <message>
            <source>Latin étendu G</source>
            <translation>Latin Extended-G</translation>
        </message>
        <message>
            <source>Cyrillique étendu A</source>
            <translation>Cyrillic Extended-A</translation>
        </message>
        <message>
            <source>Cyrillique étendu B</source>
            <translation>Cyrillic Extended-B</translation>
        </message>
        <message>
            <source>Cyrillique étendu C</source>
            <translation>Cyrillic Extended-C</translation>
        </message>
        <message>
            <source>Symboles antiques</source>
            <translation>Ancient Symbols</translation>
        </message>
        <message>
            <source>Tuiles de mah-jong</source>
            <translation>Mahjong Tiles</translation>
        </message>
        <message>
            <source>Dominos</source>
            <translation>Domino Tiles</translation>
        </message>
        <message>
            <source>Cartes à jouer</source>
            <translation>Playing Cards</translation>
        </message>
        <message>
            <source>Extensions védiques</source>
            <translation>Vedic Extensions</translation>
        </message>
        <message>
            <source>Formes numérales indiennes communes</source>
            <translation>Common Indic Number Forms</translation>
        </message>
        <message>
            <source>Dévanâgarî étendu</source>
            <translation>Devanagari Extended</translation>
        </message>
        <message>
            <source>Hiéroglyphes égyptiens</source>
            <translation>Egyptian Hieroglyphs</translation>
        </message>
        <message>
            <source>Supplément d’alphanumériques cerclés</source>
            <translation>Enclosed Alphanumeric Supplement</translation>
        </message>
        <message>
            <source>Supplément d’idéogrammes cerclés</source>
            <translation>Enclosed Ideographic Supplement</translation>
        </message>
        <message>
            <source>Supplément C aux idéogrammes CJC</source>
            <translation>CJK Unified Ideographs Extension C</translation>
        </message>
        <message>
            <source>Supplément D aux idéogrammes CJC</source>
            <translation>CJK Unified Ideographs Extension D</translation>
        </message>
        <message>
            <source>Supplément E aux idéogrammes CJC</source>
            <translation>CJK Unified Ideographs Extension E</translation>
        </message>
        <message>
            <source>Supplément F aux idéogrammes CJC</source>
            <translation>CJK Unified Ideographs Extension F</translation>
        </message>
        <message>
            <source>Supplément G aux idéogrammes CJC</source>
            <translation>CJK Unified Ideographs Extension G</translation>
        </message>
        <message>
            <source>Supplément H aux idéogrammes CJC</source>
            <translation>CJK Unified Ideographs Extension H</translation>
        </message>
        <message>
            <source>Supplément de kanas</source>
            <translation>Kana Supplement</translation>
        </message>
        <message>
            <source>Symboles et pictogrammes divers</source>
            <translation>Miscellaneous Symbols and Pictographs</translation>
        </message>
        <message>
            <source>Émoticônes</source>
            <translation>Emoticons</translation>
        </message>
        <message>
            <source>Symboles de transport et de cartographie</source>
            <translation>Transport and Map Symbols</translation>
        </message>
        <message>
            <source>Symboles alchimiques</source>
            <translation>Alchemical Symbols</translation>
        </message>
        <message>
            <source>Arabe étendu A</source>
            <translation>Arabic Extended-A</translation>
        </message>
        <message>
            <source>Arabe étendu B</source>
            <translation>Arabic Extended-B</translation>
        </message>
        <message>
            <source>Symboles mathématiques arabes</source>
            <translation>Arabic Mathematical Alphabetic Symbols</translation>
        </message>
        <message>
            <source>Formes géométriques étendues</source>
            <translation>Geometric Shapes Extended</translation>
        </message>
        <message>
            <source>Casseau ornemental</source>
            <translation>Ornamental Dingbats</translation>
        </message>
        <message>
            <source>Supplément C de flèches</source>
            <translation>Supplemental Arrows-C</translation>
        </message>
        <message>
            <source>Symboles et pictogrammes supplémentaires</source>
            <translation>Supplemental Symbols and Pictographs</translation>
        </message>
        <message>
            <source>Symboles et pictogrammes étendus A</source>
            <translation>Symbols and Pictographs Extended-A</translation>
        </message>
        <message>
            <source>Symboles d’échecs</source>
            <translation>Chess Symbols</translation>
        </message>
        <message>
            <source>Symboles d’informatique ancienne</source>
            <translation>Symbols for Legacy Computing</translation>
        </message>
        <message>
            <source>Hors des blocs</source>
            <translation>Outside the blocks</translation>
        </message>
        <message>
            <source>Grille</source>
            <translation>Grid</translation>
        </message>
        <message>
            <source>Liste</source>
            <translation>List</translation>
        </message>
        <message>
            <source>Cascade</source>
            <translation>Waterfall</translation>
        </message>
        <message>
            <source>Comparer</source>
            <translation>Compare</translation>
        </message>
        <message>
            <source>Activation incomplète : </source>
            <translation>Incomplete activation: </translation>
        </message>
        <message>
            <source>Désactivation incomplète : </source>
            <translation>Incomplete deactivation: </translation>
        </message>
        <message>
            <source>« %1 » installée (%2).</source>
            <translation>“%1” installed (%2).</translation>
        </message>
        <message numerus="yes">
            <source>%1 fichiers</source>
            <translation>
                <numerusform>%1 file</numerusform>
                <numerusform>%1 files</numerusform>
            </translation>
        </message>
        <message>
            <source>« %1 » n’est pas installée.</source>
            <translation>“%1” is not installed.</translation>
        </message>
        <message>
            <source>« %1 » ne peut pas être mise à la corbeille : %2</source>
            <translation>“%1” cannot be moved to the trash: %2</translation>
        </message>
        <message>
            <source>« %1 » retirée. Les fichiers sont dans la Corbeille.</source>
            <translation>“%1” removed. The files are in the trash.</translation>
        </message>
        <message numerus="yes">
            <source>et %1 autres</source>
            <translation>
                <numerusform>and %1 other</numerusform>
                <numerusform>and %1 others</numerusform>
            </translation>
        </message>
        <message>
            <source>Le fichier de la police « %1 » est introuvable : %2</source>
            <translation>The file of the font “%1” cannot be found: %2</translation>
        </message>
        <message>
            <source>Polices activées pour %1 : %2.</source>
            <translation>Fonts activated for %1: %2.</translation>
        </message>
        <message>
            <source>« %1 » utilise des polices introuvables sur ce Mac : %2</source>
            <translation>“%1” uses fonts that cannot be found on this Mac: %2</translation>
        </message>
        <message>
            <source>Lecture de l'index…</source>
            <translation>Reading the index…</translation>
        </message>
        <message>
            <source>Analyse de %1 graisses…</source>
            <translation>Reading %1 styles…</translation>
        </message>
        <message>
            <source>Analyse annulée. La bibliothèque reste comme elle était.</source>
            <translation>Reading cancelled. The library stays as it was.</translation>
        </message>
        <message>
            <source>Enregistrement…</source>
            <translation>Saving…</translation>
        </message>
        <message>
            <source>Analyse %1 / %2</source>
            <translation>Reading %1 / %2</translation>
        </message>
        <message>
            <source>ce n’est pas une sauvegarde de Kerlune</source>
            <translation>it is not a Kerlune backup</translation>
        </message>
        <message>
            <source>« %1 » n’est pas un numéro de version</source>
            <translation>“%1” is not a version number</translation>
        </message>
        <message>
            <source>cette sauvegarde vient d’une version plus récente de Kerlune</source>
            <translation>this backup comes from a newer version of Kerlune</translation>
        </message>
        <message>
            <source>« %1 » manque</source>
            <translation>“%1” is missing</translation>
        </message>
        <message>
            <source>« %1 » a trop de niveaux</source>
            <translation>“%1” has too many levels</translation>
        </message>
        <message>
            <source>« %1 » n’est pas de l’UTF-8 valide</source>
            <translation>“%1” is not valid UTF-8</translation>
        </message>
        <message>
            <source>« %1 » n’est pas un objet</source>
            <translation>“%1” is not an object</translation>
        </message>
        <message>
            <source>« %1 » n’est pas une liste</source>
            <translation>“%1” is not a list</translation>
        </message>
        <message>
            <source>« %1 » n’est pas une date</source>
            <translation>“%1” is not a date</translation>
        </message>
        <message>
            <source>« %1 » est vide</source>
            <translation>“%1” is empty</translation>
        </message>
        <message>
            <source>« %1 » n’est pas un texte</source>
            <translation>“%1” is not a text</translation>
        </message>
        <message>
            <source>« %1 » n’est pas un nombre entier</source>
            <translation>“%1” is not a whole number</translation>
        </message>
        <message>
            <source>Le dossier de « %1 » n’existe pas.</source>
            <translation>The folder of “%1” does not exist.</translation>
        </message>
        <message>
            <source>« %1 » existe et n’est pas une sauvegarde de Kerlune ; il n’a pas été modifié.</source>
            <translation>“%1” exists and is not a Kerlune backup; it was not changed.</translation>
        </message>
        <message>
            <source>Ce que contient la base de données ne peut pas être lu en entier ; rien n’a été sauvegardé.</source>
            <translation>What the database holds cannot be read as a whole; nothing was backed up.</translation>
        </message>
        <message>
            <source>La sauvegarde ne pourrait pas être restaurée : %1.</source>
            <translation>The backup could not be restored: %1.</translation>
        </message>
        <message>
            <source>plus de 64 Mio</source>
            <translation>more than 64 MiB</translation>
        </message>
        <message>
            <source>ce n’est pas du JSON</source>
            <translation>it is not JSON</translation>
        </message>
        <message>
            <source>%1, %2, %3, %4, %5</source>
            <translation>%1, %2, %3, %4, %5</translation>
        </message>
        <message numerus="yes">
            <source>%1 tags</source>
            <translation>
                <numerusform>%1 tag</numerusform>
                <numerusform>%1 tags</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 collections</source>
            <translation>
                <numerusform>%1 collection</numerusform>
                <numerusform>%1 collections</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 collections intelligentes</source>
            <translation>
                <numerusform>%1 smart collection</numerusform>
                <numerusform>%1 smart collections</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 favoris</source>
            <translation>
                <numerusform>%1 favorite</numerusform>
                <numerusform>%1 favorites</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 familles récentes</source>
            <translation>
                <numerusform>%1 recent family</numerusform>
                <numerusform>%1 recent families</numerusform>
            </translation>
        </message>
        <message>
            <source>recherche « %1 »</source>
            <translation>search “%1”</translation>
        </message>
        <message>
            <source>tags : %1</source>
            <translation>tags: %1</translation>
        </message>
        <message>
            <source>variables</source>
            <translation>variable</translation>
        </message>
        <message>
            <source>monospace</source>
            <translation>monospace</translation>
        </message>
        <message>
            <source>couleur</source>
            <translation>color</translation>
        </message>
        <message>
            <source>italiques</source>
            <translation>italics</translation>
        </message>
        <message>
            <source>sans italiques</source>
            <translation>no italics</translation>
        </message>
        <message>
            <source>graisse %1–%2</source>
            <translation>weight %1–%2</translation>
        </message>
        <message>
            <source>licence restrictive</source>
            <translation>restrictive license</translation>
        </message>
        <message>
            <source>glyphes « %1 »</source>
            <translation>glyphs “%1”</translation>
        </message>
        <message>
            <source>Aucun critère</source>
            <translation>No criterion</translation>
        </message>
        <message>
            <source>Ouverture de l'index impossible : </source>
            <translation>The index cannot be opened: </translation>
        </message>
        <message>
            <source>Requête invalide : </source>
            <translation>Invalid request: </translation>
        </message>
        <message>
            <source>Écriture impossible : </source>
            <translation>Cannot write: </translation>
        </message>
        <message>
            <source> </source>
            <translation>,</translation>
        </message>
        <message>
            <source>,</source>
            <translation>.</translation>
        </message>
        <message numerus="yes">
            <source>%1 octets</source>
            <translation>
                <numerusform>%1 byte</numerusform>
                <numerusform>%1 bytes</numerusform>
            </translation>
        </message>
        <message>
            <source>%1 Ko</source>
            <translation>%1 kB | %1 kB</translation>
        </message>
        <message>
            <source>%1 Mo</source>
            <translation>%1 MB | %1 MB</translation>
        </message>
        <message>
            <source>%1 Go</source>
            <translation>%1 GB | %1 GB</translation>
        </message>
        <message>
            <source>%1 To</source>
            <translation>%1 TB | %1 TB</translation>
        </message>
        <message>
            <source>Police du système</source>
            <translation>System font</translation>
        </message>
        <message>
            <source>Active</source>
            <translation>Active</translation>
        </message>
        <message>
            <source>Inactive</source>
            <translation>Inactive</translation>
        </message>
        <message>
            <source>Active en partie</source>
            <translation>Partly active</translation>
        </message>
        <message>
            <source>Familles</source>
            <translation>Families</translation>
        </message>
        <message>
            <source>Retirer des favoris</source>
            <translation>Remove from Favorites</translation>
        </message>
        <message>
            <source>Ajouter aux favoris</source>
            <translation>Add to Favorites</translation>
        </message>
        <message>
            <source>Échantillon d’une écriture que la police couvre</source>
            <translation>Sample of a script that the font covers</translation>
        </message>
        <message>
            <source>Le fichier de la police n’a pas pu être lu.</source>
            <translation>The font file could not be read.</translation>
        </message>
        <message>
            <source>La police ne dessine rien pour ce texte.</source>
            <translation>The font draws nothing for this text.</translation>
        </message>
        <message>
            <source>La police est trop longue à dessiner.</source>
            <translation>The font takes too long to draw.</translation>
        </message>
        <message>
            <source>Police du système : toujours active</source>
            <translation>System font: always active</translation>
        </message>
        <message>
            <source>Active : cliquer pour désactiver</source>
            <translation>Active: click to deactivate</translation>
        </message>
        <message>
            <source>Inactive : cliquer pour activer</source>
            <translation>Inactive: click to activate</translation>
        </message>
        <message>
            <source>Active en partie : cliquer pour activer tous les styles</source>
            <translation>Partly active: click to activate all styles</translation>
        </message>
        <message>
            <source>%1 %</source>
            <translation>%1%</translation>
        </message>
        <message>
            <source>%1 em</source>
            <translation>%1 em</translation>
        </message>
        <message>
            <source>%1 (%2)</source>
            <translation>%1 (%2)</translation>
        </message>
        <message>
            <source>Monter</source>
            <translation>Move Up</translation>
        </message>
        <message>
            <source>Ctrl+Haut</source>
            <translation>Ctrl+Up</translation>
        </message>
        <message>
            <source>Descendre</source>
            <translation>Move Down</translation>
        </message>
        <message>
            <source>Ctrl+Bas</source>
            <translation>Ctrl+Down</translation>
        </message>
        <message>
            <source>Retirer de la comparaison</source>
            <translation>Remove from the Comparison</translation>
        </message>
        <message>
            <source>Suppr</source>
            <translation>Del</translation>
        </message>
        <message>
            <source>Hauteur d’x</source>
            <translation>x-Height</translation>
        </message>
        <message>
            <source>Capitales</source>
            <translation>Capitals</translation>
        </message>
        <message>
            <source>Largeur</source>
            <translation>Width</translation>
        </message>
        <message>
            <source>Cette famille n’est plus dans la bibliothèque.</source>
            <translation>This family is no longer in the library.</translation>
        </message>
        <message>
            <source>Cette police ne peut pas être dessinée.</source>
            <translation>This font cannot be drawn.</translation>
        </message>
        <message>
            <source>%1 px</source>
            <translation>%1 px</translation>
        </message>
        <message>
            <source>Comparaison</source>
            <translation>Comparison</translation>
        </message>
        <message>
            <source>Superposer</source>
            <translation>Overlay</translation>
        </message>
        <message>
            <source>Montrer toutes les lignes l’une sur l’autre</source>
            <translation>Show all lines on top of one another</translation>
        </message>
        <message>
            <source>Sélectionnez des familles, puis Comparer (Ctrl+D).</source>
            <translation>Select families, then Compare (Ctrl+D).</translation>
        </message>
        <message>
            <source>%1 px au lieu de %2</source>
            <translation>%1 px instead of %2</translation>
        </message>
        <message>
            <source>Favori</source>
            <translation>Favorite</translation>
        </message>
        <message>
            <source>Variable</source>
            <translation>Variable</translation>
        </message>
        <message>
            <source>En couleur</source>
            <translation>Color</translation>
        </message>
        <message>
            <source>VAR</source>
            <translation>VAR</translation>
        </message>
        <message>
            <source>Retirer une famille</source>
            <translation>Remove a family</translation>
        </message>
        <message>
            <source>Retirer « %1 » ?</source>
            <translation>Remove “%1”?</translation>
        </message>
        <message>
            <source>Les autres programmes ne la voient plus. Ses fichiers vont dans la corbeille.</source>
            <translation>Other programs no longer see it. Its files go to the trash.</translation>
        </message>
        <message>
            <source>Retirer</source>
            <translation>Remove</translation>
        </message>
        <message>
            <source>Annuler</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>« %1 » est dans la comparaison.</source>
            <translation>“%1” is in the comparison.</translation>
        </message>
        <message>
            <source>« %1 » n’est pas encore dans la bibliothèque.</source>
            <translation>“%1” is not in the library yet.</translation>
        </message>
        <message>
            <source>Voir dans la bibliothèque</source>
            <translation>Show in the library</translation>
        </message>
        <message>
            <source>Retirer…</source>
            <translation>Remove…</translation>
        </message>
        <message>
            <source>Installer</source>
            <translation>Install</translation>
        </message>
        <message>
            <source>Ajouter à la comparaison</source>
            <translation>Add to the comparison</translation>
        </message>
        <message>
            <source>Copier le nom</source>
            <translation>Copy Name</translation>
        </message>
        <message>
            <source>Popularité</source>
            <translation>Popularity</translation>
        </message>
        <message>
            <source>Tendance</source>
            <translation>Trending</translation>
        </message>
        <message>
            <source>Nouveautés</source>
            <translation>Newest</translation>
        </message>
        <message>
            <source>Nom</source>
            <translation>Name</translation>
        </message>
        <message>
            <source>Variables</source>
            <translation>Variable</translation>
        </message>
        <message>
            <source>Installées</source>
            <translation>Installed</translation>
        </message>
        <message>
            <source>Catégorie</source>
            <translation>Category</translation>
        </message>
        <message>
            <source>Ordre</source>
            <translation>Order</translation>
        </message>
        <message>
            <source>Lire le catalogue de nouveau</source>
            <translation>Read the catalogue again</translation>
        </message>
        <message>
            <source>N° %1</source>
            <translation>No. %1</translation>
        </message>
        <message>
            <source>Choisissez une famille pour la voir ici.</source>
            <translation>Choose a family to see it here.</translation>
        </message>
        <message>
            <source>Créateur</source>
            <translation>Designer</translation>
        </message>
        <message>
            <source>Styles</source>
            <translation>Styles</translation>
        </message>
        <message>
            <source>oui</source>
            <translation>yes</translation>
        </message>
        <message>
            <source>non</source>
            <translation>no</translation>
        </message>
        <message>
            <source>Ajoutée le</source>
            <translation>Added on</translation>
        </message>
        <message>
            <source>Installation en cours</source>
            <translation>Installing</translation>
        </message>
        <message>
            <source>Installation en cours…</source>
            <translation>Installing…</translation>
        </message>
        <message>
            <source>Installée</source>
            <translation>Installed</translation>
        </message>
        <message>
            <source>Pas encore installée</source>
            <translation>Not installed yet</translation>
        </message>
        <message>
            <source>installée</source>
            <translation>installed</translation>
        </message>
        <message>
            <source>installation en cours</source>
            <translation>being installed</translation>
        </message>
        <message>
            <source>Familles de Google Fonts</source>
            <translation>Families of Google Fonts</translation>
        </message>
        <message>
            <source>Catalogue indisponible</source>
            <translation>Catalogue unavailable</translation>
        </message>
        <message>
            <source>Réessayer</source>
            <translation>Try again</translation>
        </message>
        <message>
            <source>Aucune famille ne correspond</source>
            <translation>No family matches</translation>
        </message>
        <message>
            <source>Le catalogue en a d’autres, sans cette recherche et ces filtres.</source>
            <translation>The catalogue has others, without this search and these filters.</translation>
        </message>
        <message>
            <source>Tout effacer</source>
            <translation>Clear All</translation>
        </message>
        <message>
            <source>La liste est gardée une semaine sur cet ordinateur.</source>
            <translation>The list is kept on this computer for a week.</translation>
        </message>
        <message>
            <source>Police système</source>
            <translation>System font</translation>
        </message>
        <message>
            <source>Désactiver</source>
            <translation>Deactivate</translation>
        </message>
        <message>
            <source>Activer</source>
            <translation>Activate</translation>
        </message>
        <message>
            <source>Style</source>
            <translation>Style</translation>
        </message>
        <message>
            <source>Police variable</source>
            <translation>Variable font</translation>
        </message>
        <message>
            <source>Police en couleurs</source>
            <translation>Color font</translation>
        </message>
        <message>
            <source>Inspecteur</source>
            <translation>Inspector</translation>
        </message>
        <message>
            <source>Informations</source>
            <translation>Information</translation>
        </message>
        <message>
            <source>Axes</source>
            <translation>Axes</translation>
        </message>
        <message>
            <source>OpenType</source>
            <translation>OpenType</translation>
        </message>
        <message>
            <source>Glyphes</source>
            <translation>Glyphs</translation>
        </message>
        <message>
            <source>Similaires</source>
            <translation>Similar</translation>
        </message>
        <message numerus="yes">
            <source>%1 familles sélectionnées</source>
            <translation>
                <numerusform>%1 family selected</numerusform>
                <numerusform>%1 families selected</numerusform>
            </translation>
        </message>
        <message>
            <source>Tag…</source>
            <translation>Tag…</translation>
        </message>
        <message>
            <source>La modification n’a pas pu être enregistrée.</source>
            <translation>The change could not be saved.</translation>
        </message>
        <message>
            <source>Ajouter le tag « %1 »</source>
            <translation>Add the Tag “%1”</translation>
        </message>
        <message>
            <source>Retirer le tag « %1 »</source>
            <translation>Remove the Tag “%1”</translation>
        </message>
        <message>
            <source>Renommer le tag « %1 »</source>
            <translation>Rename the Tag “%1”</translation>
        </message>
        <message>
            <source>Supprimer le tag « %1 »</source>
            <translation>Delete the Tag “%1”</translation>
        </message>
        <message>
            <source>Créer la collection « %1 »</source>
            <translation>Create the Collection “%1”</translation>
        </message>
        <message>
            <source>Renommer la collection « %1 »</source>
            <translation>Rename the Collection “%1”</translation>
        </message>
        <message>
            <source>Supprimer la collection « %1 »</source>
            <translation>Delete the Collection “%1”</translation>
        </message>
        <message>
            <source>Ajouter à la collection « %1 »</source>
            <translation>Add to the Collection “%1”</translation>
        </message>
        <message>
            <source>Retirer de la collection « %1 »</source>
            <translation>Remove from the Collection “%1”</translation>
        </message>
        <message>
            <source>Enregistrer la collection intelligente « %1 »</source>
            <translation>Save the Smart Collection “%1”</translation>
        </message>
        <message>
            <source>Mettre à jour la collection intelligente « %1 »</source>
            <translation>Update the Smart Collection “%1”</translation>
        </message>
        <message>
            <source>Renommer la collection intelligente « %1 »</source>
            <translation>Rename the Smart Collection “%1”</translation>
        </message>
        <message>
            <source>Supprimer la collection intelligente « %1 »</source>
            <translation>Delete the Smart Collection “%1”</translation>
        </message>
        <message numerus="yes">
            <source>Activation de %1 familles…</source>
            <translation>
                <numerusform>Activating %1 family…</numerusform>
                <numerusform>Activating %1 families…</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>Désactivation de %1 familles…</source>
            <translation>
                <numerusform>Deactivating %1 family…</numerusform>
                <numerusform>Deactivating %1 families…</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 familles activées.</source>
            <translation>
                <numerusform>%1 family activated.</numerusform>
                <numerusform>%1 families activated.</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 familles désactivées.</source>
            <translation>
                <numerusform>%1 family deactivated.</numerusform>
                <numerusform>%1 families deactivated.</numerusform>
            </translation>
        </message>
        <message>
            <source>Lecture du dossier « %1 »…</source>
            <translation>Reading the folder “%1”…</translation>
        </message>
        <message numerus="yes">
            <source>%1 polices ajoutées à la bibliothèque.</source>
            <translation>
                <numerusform>%1 font added to the library.</numerusform>
                <numerusform>%1 fonts added to the library.</numerusform>
            </translation>
        </message>
        <message>
            <source>Retrait du dossier…</source>
            <translation>Removing the folder…</translation>
        </message>
        <message>
            <source>Le fichier ne peut pas être lu.</source>
            <translation>The file cannot be read.</translation>
        </message>
        <message>
            <source>Lecture…</source>
            <translation>Reading…</translation>
        </message>
        <message>
            <source>Cette police n’a pas d’axes de variation.</source>
            <translation>This font has no variation axes.</translation>
        </message>
        <message>
            <source>Réglage libre</source>
            <translation>Custom</translation>
        </message>
        <message>
            <source>Sans nom</source>
            <translation>Unnamed</translation>
        </message>
        <message>
            <source>CSS copié.</source>
            <translation>CSS copied.</translation>
        </message>
        <message>
            <source>Instance</source>
            <translation>Instance</translation>
        </message>
        <message>
            <source>Axes masqués</source>
            <translation>Hidden Axes</translation>
        </message>
        <message>
            <source>Réinitialiser</source>
            <translation>Reset</translation>
        </message>
        <message>
            <source>Copier le CSS</source>
            <translation>Copy CSS</translation>
        </message>
        <message>
            <source>%1, valeur exacte</source>
            <translation>%1, exact value</translation>
        </message>
        <message>
            <source>Copier</source>
            <translation>Copy</translation>
        </message>
        <message>
            <source>Tout sélectionner</source>
            <translation>Select All</translation>
        </message>
        <message>
            <source>Fonction propre à la police</source>
            <translation>Feature of this font</translation>
        </message>
        <message>
            <source>%1, variante</source>
            <translation>%1, alternate</translation>
        </message>
        <message>
            <source>Cette police n’a pas de fonctions OpenType.</source>
            <translation>This font has no OpenType features.</translation>
        </message>
        <message>
            <source>Au choix</source>
            <translation>Optional</translation>
        </message>
        <message>
            <source>Actives d’office</source>
            <translation>On by Default</translation>
        </message>
        <message>
            <source>U+%1, glyphe %2</source>
            <translation>U+%1, glyph %2</translation>
        </message>
        <message>
            <source>Chasse %1</source>
            <translation>Advance %1</translation>
        </message>
        <message>
            <source>x %1 … %2</source>
            <translation>x %1 … %2</translation>
        </message>
        <message>
            <source>y %1 … %2</source>
            <translation>y %1 … %2</translation>
        </message>
        <message>
            <source>Aucun caractère trouvé.</source>
            <translation>No character found.</translation>
        </message>
        <message>
            <source>Tous les blocs (%1)</source>
            <translation>All blocks (%1)</translation>
        </message>
        <message>
            <source>Copié : %1</source>
            <translation>Copied: %1</translation>
        </message>
        <message>
            <source>Copier le caractère</source>
            <translation>Copy Character</translation>
        </message>
        <message>
            <source>Copier le point de code</source>
            <translation>Copy Code Point</translation>
        </message>
        <message>
            <source>Copier l’entité HTML</source>
            <translation>Copy HTML Entity</translation>
        </message>
        <message>
            <source>Caractère, nom anglais ou U+…</source>
            <translation>Character, name or U+…</translation>
        </message>
        <message>
            <source>Rechercher un caractère</source>
            <translation>Search for a character</translation>
        </message>
        <message>
            <source>Bloc Unicode</source>
            <translation>Unicode Block</translation>
        </message>
        <message>
            <source>Caractères</source>
            <translation>Characters</translation>
        </message>
        <message>
            <source>Nom PostScript copié.</source>
            <translation>PostScript name copied.</translation>
        </message>
        <message>
            <source>Chemin copié.</source>
            <translation>Path copied.</translation>
        </message>
        <message>
            <source>Tags</source>
            <translation>Tags</translation>
        </message>
        <message>
            <source>Collections</source>
            <translation>Collections</translation>
        </message>
        <message>
            <source>Mesures</source>
            <translation>Metrics</translation>
        </message>
        <message>
            <source>Couverture</source>
            <translation>Coverage</translation>
        </message>
        <message>
            <source>Fichier</source>
            <translation>File</translation>
        </message>
        <message>
            <source>Copier le nom PostScript</source>
            <translation>Copy PostScript Name</translation>
        </message>
        <message>
            <source>Copier @font-face</source>
            <translation>Copy @font-face</translation>
        </message>
        <message>
            <source>Ouvrir le dossier</source>
            <translation>Open Folder</translation>
        </message>
        <message>
            <source>Copier le chemin</source>
            <translation>Copy Path</translation>
        </message>
        <message>
            <source>Ajouter un tag…</source>
            <translation>Add a Tag…</translation>
        </message>
        <message>
            <source>Ajouter à une collection</source>
            <translation>Add to a Collection</translation>
        </message>
        <message>
            <source>Nom PostScript</source>
            <translation>PostScript Name</translation>
        </message>
        <message>
            <source>Version</source>
            <translation>Version</translation>
        </message>
        <message>
            <source>Fonderie</source>
            <translation>Foundry</translation>
        </message>
        <message>
            <source>Création</source>
            <translation>Designer</translation>
        </message>
        <message>
            <source>Copyright</source>
            <translation>Copyright</translation>
        </message>
        <message>
            <source>Licence</source>
            <translation>License</translation>
        </message>
        <message>
            <source>Intégration</source>
            <translation>Embedding</translation>
        </message>
        <message>
            <source>Dossier</source>
            <translation>Folder</translation>
        </message>
        <message>
            <source>Taille</source>
            <translation>Size</translation>
        </message>
        <message>
            <source>Modifié le</source>
            <translation>Modified</translation>
        </message>
        <message>
            <source>Classe</source>
            <translation>Class</translation>
        </message>
        <message>
            <source>Unités par cadratin</source>
            <translation>Units per Em</translation>
        </message>
        <message>
            <source>Ascendante</source>
            <translation>Ascent</translation>
        </message>
        <message>
            <source>Descendante</source>
            <translation>Descent</translation>
        </message>
        <message>
            <source>Hauteur des capitales</source>
            <translation>Cap Height</translation>
        </message>
        <message>
            <source>Nouvelle collection…</source>
            <translation>New Collection…</translation>
        </message>
        <message>
            <source>Nouvelle collection</source>
            <translation>New Collection</translation>
        </message>
        <message>
            <source>Aucun programme n’ouvre ce lien.</source>
            <translation>No program opens this link.</translation>
        </message>
        <message>
            <source>Le dossier n’a pas pu être ouvert.</source>
            <translation>The folder could not be opened.</translation>
        </message>
        <message>
            <source>Kerlune compare les polices en analysant le dessin réel de leurs glyphes.</source>
            <translation>Kerlune compares fonts by analyzing how their glyphs are really drawn.</translation>
        </message>
        <message>
            <source>Analyser ma bibliothèque</source>
            <translation>Analyze My Library</translation>
        </message>
        <message>
            <source>Polices similaires</source>
            <translation>Similar Fonts</translation>
        </message>
        <message>
            <source>Écritures non latines</source>
            <translation>Non-Latin Scripts</translation>
        </message>
        <message>
            <source>Écarter les polices non latines</source>
            <translation>Leave Out Non-Latin Fonts</translation>
        </message>
        <message>
            <source>Les polices arabes, indiennes ou asiatiques ont souvent un latin générique qui remonte à tort dans les résultats.</source>
            <translation>Arabic, Indian or Asian fonts often have a generic Latin that wrongly rises in the results.</translation>
        </message>
        <message>
            <source>%1 / %2</source>
            <translation>%1 / %2</translation>
        </message>
        <message>
            <source>Grand aperçu : %1, %2, %3</source>
            <translation>Large preview: %1, %2, %3</translation>
        </message>
        <message>
            <source>Famille précédente</source>
            <translation>Previous Family</translation>
        </message>
        <message>
            <source>Famille suivante</source>
            <translation>Next Family</translation>
        </message>
        <message>
            <source>Plus petit</source>
            <translation>Smaller</translation>
        </message>
        <message>
            <source>Plus grand</source>
            <translation>Larger</translation>
        </message>
        <message>
            <source>Fermer le grand aperçu</source>
            <translation>Close the Large Preview</translation>
        </message>
        <message>
            <source>Cette police ne peut pas être lue.</source>
            <translation>This font cannot be read.</translation>
        </message>
        <message>
            <source>Cette police ne dessine rien pour ce texte.</source>
            <translation>This font draws nothing for this text.</translation>
        </message>
        <message>
            <source>Cette police est trop longue à dessiner.</source>
            <translation>This font takes too long to draw.</translation>
        </message>
        <message>
            <source>Cette police n’a pas les caractères du texte : un autre texte est montré.</source>
            <translation>This font lacks the characters of the text: another text is shown.</translation>
        </message>
        <message>
            <source>Réduit à %1 pour tenir dans la place.</source>
            <translation>Reduced to %1 to fit.</translation>
        </message>
        <message>
            <source>Effacer</source>
            <translation>Clear</translation>
        </message>
        <message>
            <source>Barre latérale</source>
            <translation>Sidebar</translation>
        </message>
        <message>
            <source>Ajouter un dossier…</source>
            <translation>Add a Folder…</translation>
        </message>
        <message>
            <source>Analyser de nouveau</source>
            <translation>Scan Again</translation>
        </message>
        <message>
            <source>Activer automatiquement</source>
            <translation>Activate Automatically</translation>
        </message>
        <message>
            <source>Retirer de la bibliothèque…</source>
            <translation>Remove from the Library…</translation>
        </message>
        <message>
            <source>Modifier les filtres</source>
            <translation>Edit the Filters</translation>
        </message>
        <message>
            <source>Remplacer par les filtres actuels</source>
            <translation>Replace with the Current Filters</translation>
        </message>
        <message>
            <source>Activer toutes les familles</source>
            <translation>Activate All Families</translation>
        </message>
        <message>
            <source>Désactiver toutes les familles</source>
            <translation>Deactivate All Families</translation>
        </message>
        <message>
            <source>Copier les noms</source>
            <translation>Copy the Names</translation>
        </message>
        <message>
            <source>Renommer</source>
            <translation>Rename</translation>
        </message>
        <message>
            <source>Supprimer</source>
            <translation>Delete</translation>
        </message>
        <message>
            <source>Collection « %1 » supprimée. Ctrl+Z pour annuler.</source>
            <translation>Collection “%1” deleted. Ctrl+Z to undo.</translation>
        </message>
        <message>
            <source>Collection intelligente « %1 » supprimée. Ctrl+Z pour annuler.</source>
            <translation>Smart collection “%1” deleted. Ctrl+Z to undo.</translation>
        </message>
        <message>
            <source>Tag « %1 » supprimé. Ctrl+Z pour annuler.</source>
            <translation>Tag “%1” deleted. Ctrl+Z to undo.</translation>
        </message>
        <message>
            <source>Retirer un dossier</source>
            <translation>Remove a Folder</translation>
        </message>
        <message>
            <source>Retirer « %1 » de la bibliothèque ?</source>
            <translation>Remove “%1” from the library?</translation>
        </message>
        <message>
            <source>Ses polices quittent la bibliothèque et celles qui sont actives sont désactivées. Aucun fichier n’est supprimé.</source>
            <translation>Its fonts leave the library, and those that are active are deactivated. No file is deleted.</translation>
        </message>
        <message>
            <source>Sélectionnez d’abord les familles à marquer.</source>
            <translation>First select the families to tag.</translation>
        </message>
        <message>
            <source>Nouvelle collection %1</source>
            <translation>New Collection %1</translation>
        </message>
        <message>
            <source>Toutes</source>
            <translation>All</translation>
        </message>
        <message>
            <source>Favoris</source>
            <translation>Favorites</translation>
        </message>
        <message>
            <source>Récents</source>
            <translation>Recent</translation>
        </message>
        <message>
            <source>Couleur</source>
            <translation>Color</translation>
        </message>
        <message>
            <source>Doublons</source>
            <translation>Duplicates</translation>
        </message>
        <message>
            <source>Aucun dossier surveillé</source>
            <translation>No watched folder</translation>
        </message>
        <message>
            <source>Déposez ici des familles</source>
            <translation>Drop families here</translation>
        </message>
        <message>
            <source>Enregistrez des filtres</source>
            <translation>Save some filters</translation>
        </message>
        <message>
            <source>Aucun tag</source>
            <translation>No tag</translation>
        </message>
        <message>
            <source>Bibliothèque</source>
            <translation>Library</translation>
        </message>
        <message>
            <source>Classes</source>
            <translation>Classes</translation>
        </message>
        <message>
            <source>Dossiers</source>
            <translation>Folders</translation>
        </message>
        <message>
            <source>Collections intelligentes</source>
            <translation>Smart Collections</translation>
        </message>
        <message>
            <source>Catalogues</source>
            <translation>Catalogs</translation>
        </message>
        <message>
            <source>Dossier introuvable : %1</source>
            <translation>Folder not found: %1</translation>
        </message>
        <message>
            <source>dossier introuvable</source>
            <translation>folder not found</translation>
        </message>
        <message>
            <source>Les tags « %1 » et « %2 » sont réunis. Ctrl+Z pour annuler.</source>
            <translation>The tags “%1” and “%2” are joined. Ctrl+Z to undo.</translation>
        </message>
        <message>
            <source>Ajouter un tag</source>
            <translation>Add a Tag</translation>
        </message>
        <message>
            <source>Tag pour « %1 »</source>
            <translation>Tag for “%1”</translation>
        </message>
        <message numerus="yes">
            <source>Tag pour %1 familles</source>
            <translation>
                <numerusform>Tag for %1 family</numerusform>
                <numerusform>Tag for %1 families</numerusform>
            </translation>
        </message>
        <message>
            <source>Tag</source>
            <translation>Tag</translation>
        </message>
        <message>
            <source>Ajouter</source>
            <translation>Add</translation>
        </message>
        <message>
            <source>Autres filtres</source>
            <translation>More Filters</translation>
        </message>
        <message>
            <source>Mettre à jour</source>
            <translation>Update</translation>
        </message>
        <message>
            <source>Remplacer les filtres de la collection intelligente par ceux-ci</source>
            <translation>Replace the filters of the smart collection with these</translation>
        </message>
        <message>
            <source>Enregistrer…</source>
            <translation>Save…</translation>
        </message>
        <message>
            <source>Enregistrer comme collection intelligente</source>
            <translation>Save as a smart collection</translation>
        </message>
        <message>
            <source>Retirer tous les filtres</source>
            <translation>Remove all filters</translation>
        </message>
        <message>
            <source>Retirer le filtre « %1 »</source>
            <translation>Remove the filter “%1”</translation>
        </message>
        <message>
            <source>Langues</source>
            <translation>Languages</translation>
        </message>
        <message>
            <source>Chasse fixe</source>
            <translation>Monospaced</translation>
        </message>
        <message>
            <source>Licence à risque</source>
            <translation>Risky License</translation>
        </message>
        <message>
            <source>Caractères requis</source>
            <translation>Required Characters</translation>
        </message>
        <message>
            <source>Classe : %1</source>
            <translation>Class: %1</translation>
        </message>
        <message>
            <source>Langues : %1</source>
            <translation>Languages: %1</translation>
        </message>
        <message>
            <source>Graisse : %1</source>
            <translation>Weight: %1</translation>
        </message>
        <message>
            <source>Italiques seuls</source>
            <translation>Italics Only</translation>
        </message>
        <message>
            <source>Sans italiques</source>
            <translation>No Italics</translation>
        </message>
        <message>
            <source>Tags : %1</source>
            <translation>Tags: %1</translation>
        </message>
        <message>
            <source>Caractères : %1</source>
            <translation>Characters: %1</translation>
        </message>
        <message>
            <source>Ultra-fin</source>
            <translation>Thin</translation>
        </message>
        <message>
            <source>Extra-léger</source>
            <translation>Extra Light</translation>
        </message>
        <message>
            <source>Léger</source>
            <translation>Light</translation>
        </message>
        <message>
            <source>Normal</source>
            <translation>Regular</translation>
        </message>
        <message>
            <source>Moyen</source>
            <translation>Medium</translation>
        </message>
        <message>
            <source>Demi-gras</source>
            <translation>Semi Bold</translation>
        </message>
        <message>
            <source>Gras</source>
            <translation>Bold</translation>
        </message>
        <message>
            <source>Extra-gras</source>
            <translation>Extra Bold</translation>
        </message>
        <message>
            <source>Noir</source>
            <translation>Black</translation>
        </message>
        <message>
            <source>Tous les styles</source>
            <translation>All Styles</translation>
        </message>
        <message>
            <source>Aucun tag pour l’instant.</source>
            <translation>No tag yet.</translation>
        </message>
        <message>
            <source>Familles dont le style principal a tous ces caractères :</source>
            <translation>Families whose main style has all these characters:</translation>
        </message>
        <message>
            <source>€ ₽ → ½</source>
            <translation>€ ₽ → ½</translation>
        </message>
        <message>
            <source>Rechercher une langue</source>
            <translation>Search for a language</translation>
        </message>
        <message>
            <source>Rechercher une langue…</source>
            <translation>Search for a language…</translation>
        </message>
        <message>
            <source>Alphabet</source>
            <translation>Alphabet</translation>
        </message>
        <message>
            <source>ABCDEFGHIJKLMNOPQRSTUVWXYZ abcdefghijklmnopqrstuvwxyz àâæçéèêëîïôœùûü</source>
            <translation>ABCDEFGHIJKLMNOPQRSTUVWXYZ abcdefghijklmnopqrstuvwxyz</translation>
        </message>
        <message>
            <source>Pangramme</source>
            <translation>Pangram</translation>
        </message>
        <message>
            <source>Voyez le brick géant que j’examine près du wharf.</source>
            <translation>Five quick jackdaws vex the big, lazy hamster pup.</translation>
        </message>
        <message>
            <source>Chiffres</source>
            <translation>Figures</translation>
        </message>
        <message>
            <source>0123456789 1 280,50 € 24 × 36 mm 7½ % n° 18 +33 (0)1</source>
            <translation>0123456789 $1,280.50 24 × 36 mm 7½% No. 18 +44 (0)20</translation>
        </message>
        <message>
            <source>Paragraphe</source>
            <translation>Paragraph</translation>
        </message>
        <message>
            <source>Un caractère se juge à la page : la régularité du gris, le blanc des lettres, la marche des lignes. Lu longtemps, le bon dessin s’efface ; il reste une voix, un rythme, une couleur.</source>
            <translation>A typeface is judged on the page: the evenness of its grey, the white inside its letters, the pace of its lines. Read for long, a good design steps back; what remains is a voice, a rhythm, a color.</translation>
        </message>
        <message>
            <source>Titre</source>
            <translation>Headline</translation>
        </message>
        <message>
            <source>La nuit, tous les titres sont gras</source>
            <translation>At Night, All Headlines Are Bold</translation>
        </message>
        <message>
            <source>« %1 »</source>
            <translation>“%1”</translation>
        </message>
        <message>
            <source>Texte d’aperçu</source>
            <translation>Preview Text</translation>
        </message>
        <message>
            <source>Choisir un texte</source>
            <translation>Choose a Text</translation>
        </message>
        <message>
            <source>Graisse minimale : %1</source>
            <translation>Minimum weight: %1</translation>
        </message>
        <message>
            <source>Graisse maximale : %1</source>
            <translation>Maximum weight: %1</translation>
        </message>
        <message>
            <source>Taille de l’aperçu</source>
            <translation>Preview Size</translation>
        </message>
        <message>
            <source>Taille de l’aperçu. Double clic : 34.</source>
            <translation>Preview size. Double-click: 34.</translation>
        </message>
        <message>
            <source>Taille de l’aperçu en pixels</source>
            <translation>Preview size in pixels</translation>
        </message>
        <message>
            <source>Enregistrer une collection intelligente</source>
            <translation>Save a Smart Collection</translation>
        </message>
        <message>
            <source>Enregistrer</source>
            <translation>Save</translation>
        </message>
        <message>
            <source>Rechercher une famille, un style, un créateur…</source>
            <translation>Search for a family, a style, a designer…</translation>
        </message>
        <message>
            <source>Rechercher</source>
            <translation>Search</translation>
        </message>
        <message>
            <source>Nom de la famille, nom PostScript du style, fonderie ou créateur</source>
            <translation>Family name, PostScript name of the style, foundry or designer</translation>
        </message>
        <message>
            <source>À propos de Kerlune</source>
            <translation>About Kerlune</translation>
        </message>
        <message>
            <source>La bibliothèque de polices des graphistes et des monteurs.
Elle montre, classe et active vos polices, sans toucher à leurs fichiers.

Logiciel libre, sous licence MIT.</source>
            <translation>The font library for designers and video editors.
It shows, sorts and activates your fonts without touching their files.

Free software under the MIT license.</translation>
        </message>
        <message>
            <source>Fermer</source>
            <translation>Close</translation>
        </message>
        <message>
            <source>Appliquer</source>
            <translation>Apply</translation>
        </message>
        <message>
            <source>Appliquer à la sélection</source>
            <translation>Apply to Selection</translation>
        </message>
        <message>
            <source>Donne la police choisie au texte sélectionné dans le logiciel utilisé avant Kerlune</source>
            <translation>Gives the selected font to the text selected in the program that was used before Kerlune</translation>
        </message>
        <message>
            <source>Appliquer dans %1</source>
            <translation>Apply in %1</translation>
        </message>
        <message>
            <source>Change : %1</source>
            <translation>Changes: %1</translation>
        </message>
        <message>
            <source>Essai en direct</source>
            <translation>Live Trial</translation>
        </message>
        <message>
            <source>Appliquer chaque police choisie</source>
            <translation>Apply Each Selected Font</translation>
        </message>
        <message>
            <source>Police suivante</source>
            <translation>Next Font</translation>
        </message>
        <message>
            <source>Police précédente</source>
            <translation>Previous Font</translation>
        </message>
        <message>
            <source>Police au hasard</source>
            <translation>Random Font</translation>
        </message>
        <message>
            <source>Le raccourci %1 est déjà pris par un autre logiciel.</source>
            <translation>Another program has taken the shortcut %1.</translation>
        </message>
        <message>
            <source>Le raccourci %1 n’a pas été autorisé.</source>
            <translation>The shortcut %1 was not allowed.</translation>
        </message>
        <message>
            <source>Cette session n’offre pas de raccourci global : %1 ne peut pas appliquer la police choisie.</source>
            <translation>This session offers no global shortcuts: %1 cannot apply the selected font.</translation>
        </message>
        <message>
            <source>%1 : %2</source>
            <translation>%1: %2</translation>
        </message>
        <message>
            <source>%1 ; %2</source>
            <translation>%1; %2</translation>
        </message>
        <message>
            <source>Sauvegardes de Kerlune (*.json)</source>
            <translation>Kerlune Backups (*.json)</translation>
        </message>
        <message>
            <source>Sauvegarder mes données</source>
            <translation>Back Up My Data</translation>
        </message>
        <message>
            <source>Sauvegardé : %1.</source>
            <translation>Backed up: %1.</translation>
        </message>
        <message>
            <source>Restaurer des données</source>
            <translation>Restore Data</translation>
        </message>
        <message>
            <source>« %1 » ne peut pas être restauré : %2. Rien n’a changé.</source>
            <translation>“%1” cannot be restored: %2. Nothing has changed.</translation>
        </message>
        <message>
            <source>Ajouter à votre bibliothèque ce que contient « %1 » ?</source>
            <translation>Add what “%1” holds to your library?</translation>
        </message>
        <message>
            <source>%1. Ce que vous avez déjà reste ; une collection du même identifiant prend le nom de la sauvegarde et ses familles en plus.</source>
            <translation>%1. What you have already stays; a collection of the same id takes the name of the backup and its families in addition.</translation>
        </message>
        <message>
            <source>Restaurer</source>
            <translation>Restore</translation>
        </message>
        <message>
            <source>Restauré : %1.</source>
            <translation>Restored: %1.</translation>
        </message>
        <message>
            <source>Ne plus surveiller</source>
            <translation>Stop Watching</translation>
        </message>
        <message>
            <source>Dossiers surveillés</source>
            <translation>Watched Folders</translation>
        </message>
        <message>
            <source>Coché : les nouvelles polices de ce dossier sont activées d’elles-mêmes.</source>
            <translation>Checked: new fonts in this folder are activated by themselves.</translation>
        </message>
        <message>
            <source>Activer les nouvelles polices</source>
            <translation>Activate New Fonts</translation>
        </message>
        <message>
            <source>Ne plus surveiller « %1 » ?</source>
            <translation>Stop watching “%1”?</translation>
        </message>
        <message>
            <source>Ses polices sont désactivées et quittent la bibliothèque. Aucun fichier n’est effacé.</source>
            <translation>Its fonts are deactivated and leave the library. No file is deleted.</translation>
        </message>
        <message>
            <source>&amp;Police</source>
            <translation>Fo&amp;nt</translation>
        </message>
        <message>
            <source>Ajouter à la collection</source>
            <translation>Add to Collection</translation>
        </message>
        <message>
            <source>Retirer de la collection</source>
            <translation>Remove from Collection</translation>
        </message>
        <message>
            <source>Ouvrir le dossier du fichier</source>
            <translation>Open the File’s Folder</translation>
        </message>
        <message numerus="yes">
            <source>%1 noms PostScript copiés.</source>
            <translation>
                <numerusform>%1 PostScript name copied.</numerusform>
                <numerusform>%1 PostScript names copied.</numerusform>
            </translation>
        </message>
        <message numerus="yes">
            <source>%1 noms copiés.</source>
            <translation>
                <numerusform>%1 name copied.</numerusform>
                <numerusform>%1 names copied.</numerusform>
            </translation>
        </message>
        <message>
            <source>Le dossier « %1 » n’a pas pu être ouvert.</source>
            <translation>The folder “%1” could not be opened.</translation>
        </message>
        <message>
            <source>Bibliothèque, polices et inspecteur</source>
            <translation>Library, fonts and inspector</translation>
        </message>
        <message>
            <source>« %1 » est introuvable.</source>
            <translation>“%1” cannot be found.</translation>
        </message>
        <message>
            <source>« %1 » n’est pas une police que Kerlune peut lire.</source>
            <translation>“%1” is not a font that Kerlune can read.</translation>
        </message>
        <message>
            <source>Ajouter un dossier de polices</source>
            <translation>Add a Font Folder</translation>
        </message>
        <message>
            <source>Erreur : %1</source>
            <translation>Error: %1</translation>
        </message>
        <message>
            <source>Fermer le message</source>
            <translation>Close the Message</translation>
        </message>
        <message>
            <source>Kerlune lit vos polices…</source>
            <translation>Kerlune is reading your fonts…</translation>
        </message>
        <message>
            <source>La première lecture dure quelques secondes. Les suivantes n’en ont plus besoin.</source>
            <translation>The first time takes a few seconds. Later starts do not need it.</translation>
        </message>
        <message>
            <source>La bibliothèque n’a pas pu être ouverte</source>
            <translation>The library could not be opened</translation>
        </message>
        <message>
            <source>Quitter</source>
            <translation>Quit</translation>
        </message>
        <message>
            <source>Bienvenue dans Kerlune</source>
            <translation>Welcome to Kerlune</translation>
        </message>
        <message>
            <source>Kerlune réunit toutes vos polices en un seul endroit. Comparez-les avec votre propre texte, classez-les, activez celles du moment. Aucun fichier n’est déplacé : ajoutez un dossier, ou déposez-le ici.</source>
            <translation>Kerlune brings all your fonts together in one place. Compare them with your own text, sort them, activate those that you need now. No file is moved: add a folder, or drop it here.</translation>
        </message>
        <message>
            <source>Catalogue en ligne absent</source>
            <translation>No Online Catalog</translation>
        </message>
        <message>
            <source>Cette version de Kerlune ne contient pas encore de catalogue en ligne. Les polices déjà sur cet ordinateur sont sous « Toutes ».</source>
            <translation>This version of Kerlune has no online catalog yet. The fonts that are on this computer already are under “All”.</translation>
        </message>
        <message>
            <source>Voir toutes les polices</source>
            <translation>Show All Fonts</translation>
        </message>
        <message>
            <source>Aucune police ne correspond</source>
            <translation>No font matches</translation>
        </message>
        <message>
            <source>Levez un filtre pour revoir des polices :</source>
            <translation>Lift a filter to see fonts again:</translation>
        </message>
        <message>
            <source>Sans : %1</source>
            <translation>Without: %1</translation>
        </message>
        <message>
            <source>Chercher dans toute la bibliothèque</source>
            <translation>Search the whole library</translation>
        </message>
        <message>
            <source>Pas encore de favoris</source>
            <translation>No favorites yet</translation>
        </message>
        <message>
            <source>Sélectionnez une police et pressez Ctrl+B, ou cliquez sur son étoile.</source>
            <translation>Select a font and press Ctrl+B, or click its star.</translation>
        </message>
        <message>
            <source>Rien d’utilisé récemment</source>
            <translation>Nothing used recently</translation>
        </message>
        <message>
            <source>Les polices dont vous copiez le nom ou le CSS se retrouvent ici.</source>
            <translation>Fonts whose name or CSS you copy appear here.</translation>
        </message>
        <message>
            <source>Cette collection est vide</source>
            <translation>This collection is empty</translation>
        </message>
        <message>
            <source>Faites glisser des polices sur son nom, ou passez par le menu Police.</source>
            <translation>Drag fonts onto its name, or use the Font menu.</translation>
        </message>
        <message>
            <source>Aucune police ne porte ce tag</source>
            <translation>No font carries this tag</translation>
        </message>
        <message>
            <source>Sélectionnez des polices et pressez Ctrl+T.</source>
            <translation>Select fonts and press Ctrl+T.</translation>
        </message>
        <message>
            <source>Aucune police dans ce dossier</source>
            <translation>No font in this folder</translation>
        </message>
        <message>
            <source>Les polices que vous y placez apparaissent ici d’elles-mêmes.</source>
            <translation>Fonts that you put there appear here by themselves.</translation>
        </message>
        <message>
            <source>Les filtres de cette collection intelligente ne laissent passer aucune police.</source>
            <translation>The filters of this smart collection let no font through.</translation>
        </message>
        <message>
            <source>Aucun doublon</source>
            <translation>No duplicates</translation>
        </message>
        <message>
            <source>Aucun nom PostScript n’est porté par deux polices.</source>
            <translation>No PostScript name is carried by two fonts.</translation>
        </message>
        <message>
            <source>Aucune police de ce genre</source>
            <translation>No font of this kind</translation>
        </message>
        <message>
            <source>Réglages</source>
            <translation>Settings</translation>
        </message>
        <message>
            <source>Général</source>
            <translation>General</translation>
        </message>
        <message>
            <source>Aperçu</source>
            <translation>Preview</translation>
        </message>
        <message>
            <source>Activation</source>
            <translation>Activation</translation>
        </message>
        <message>
            <source>Recherche</source>
            <translation>Search</translation>
        </message>
        <message>
            <source>Celle du système</source>
            <translation>The system’s</translation>
        </message>
        <message>
            <source>Celle du bureau</source>
            <translation>The desktop’s</translation>
        </message>
        <message>
            <source>Claire</source>
            <translation>Light</translation>
        </message>
        <message>
            <source>Sombre</source>
            <translation>Dark</translation>
        </message>
        <message>
            <source>Langue</source>
            <translation>Language</translation>
        </message>
        <message>
            <source>Apparence</source>
            <translation>Appearance</translation>
        </message>
        <message>
            <source>Icône dans la zone de notification</source>
            <translation>Icon in the notification area</translation>
        </message>
        <message>
            <source>Elle donne vos polices récentes et favorites sans ouvrir la fenêtre. Tant qu’elle est là, fermer la fenêtre ne quitte pas Kerlune.</source>
            <translation>It offers your recent and favorite fonts without opening the window. While it is there, closing the window does not quit Kerlune.</translation>
        </message>
        <message>
            <source> px</source>
            <translation> px</translation>
        </message>
        <message>
            <source>Texte montré</source>
            <translation>Text Shown</translation>
        </message>
        <message>
            <source>Mon texte</source>
            <translation>My Text</translation>
        </message>
        <message>
            <source>« Mon texte » se retrouve parmi les textes d’exemple, dans la barre d’outils.</source>
            <translation>“My Text” is among the sample texts in the toolbar.</translation>
        </message>
        <message>
            <source>Activer les polices qui manquent à un document</source>
            <translation>Activate the fonts that a document misses</translation>
        </message>
        <message>
            <source>Raccourci global pour appliquer la police</source>
            <translation>Global shortcut that applies the font</translation>
        </message>
        <message>
            <source>Ces deux réglages sont gardés, mais n’ont pas encore d’effet dans cette version.</source>
            <translation>These two settings are kept, but have no effect in this version yet.</translation>
        </message>
        <message>
            <source>Identification : chercher aussi dans Google Fonts</source>
            <translation>Identification: search Google Fonts too</translation>
        </message>
        <message>
            <source>L’identification n’est pas encore dans cette version ; son réglage est gardé.</source>
            <translation>Identification is not in this version yet; its setting is kept.</translation>
        </message>
        <message>
            <source>Aller d’une police à l’autre</source>
            <translation>Go from one font to the next</translation>
        </message>
        <message>
            <source>Première et dernière police</source>
            <translation>First and last font</translation>
        </message>
        <message>
            <source>Début, Fin</source>
            <translation>Home, End</translation>
        </message>
        <message>
            <source>Étendre la sélection</source>
            <translation>Extend the selection</translation>
        </message>
        <message>
            <source>Maj + flèches</source>
            <translation>Shift + arrows</translation>
        </message>
        <message>
            <source>Chercher un nom</source>
            <translation>Search for a name</translation>
        </message>
        <message>
            <source>Taper ses premières lettres</source>
            <translation>Type its first letters</translation>
        </message>
        <message>
            <source>Grand aperçu</source>
            <translation>Large Preview</translation>
        </message>
        <message>
            <source>Espace</source>
            <translation>Space</translation>
        </message>
        <message>
            <source>Menu contextuel</source>
            <translation>Context Menu</translation>
        </message>
        <message>
            <source>Maj+F10</source>
            <translation>Shift+F10</translation>
        </message>
        <message>
            <source>Dans la vue des polices</source>
            <translation>In the Font View</translation>
        </message>
        <message>
            <source>Raccourcis clavier</source>
            <translation>Keyboard Shortcuts</translation>
        </message>
        <message>
            <source>Essai en direct : chaque police choisie est appliquée dans %1.</source>
            <translation>Live trial: each selected font is applied in %1.</translation>
        </message>
        <message>
            <source>Arrêter l’essai en direct</source>
            <translation>Stop the live trial</translation>
        </message>
        <message>
            <source>lecture du catalogue…</source>
            <translation>reading the catalogue…</translation>
        </message>
        <message numerus="yes">
            <source>%1 sélectionnées</source>
            <translation>
                <numerusform>%1 selected</numerusform>
                <numerusform>%1 selected</numerusform>
            </translation>
        </message>
        <message>
            <source>Lecture des caractères des polices…</source>
            <translation>Reading the characters of fonts…</translation>
        </message>
        <message>
            <source>Polices récentes et favorites</source>
            <translation>Recent and Favorite Fonts</translation>
        </message>
        <message>
            <source>Ouvrir Kerlune</source>
            <translation>Open Kerlune</translation>
        </message>
        <message>
            <source>Rechercher une police</source>
            <translation>Search for a font</translation>
        </message>
        <message>
            <source>Donne la police au texte sélectionné dans le logiciel utilisé avant Kerlune</source>
            <translation>Gives the font to the text selected in the program that was used before Kerlune</translation>
        </message>
        <message>
            <source>Polices trouvées</source>
            <translation>Fonts Found</translation>
        </message>
        <message>
            <source>aucune police</source>
            <translation>no font</translation>
        </message>
        <message>
            <source>Voici déjà les polices de cet ordinateur. Ajoutez les dossiers où sont les vôtres : elles se voient et s’activent sans être installées. Aucun fichier n’est déplacé ni modifié.</source>
            <translation>Here are the fonts of this computer already. Add the folders where yours are: they are shown and activated without being installed. No file is moved or changed.</translation>
        </message>
        <message>
            <source>Ne plus afficher ce message</source>
            <translation>Do not show this message again</translation>
        </message>
        <message>
            <source>&amp;Fichier</source>
            <translation>&amp;File</translation>
        </message>
        <message>
            <source>Nouveau tag…</source>
            <translation>New Tag…</translation>
        </message>
        <message>
            <source>Enregistrer les filtres…</source>
            <translation>Save the Filters…</translation>
        </message>
        <message>
            <source>Sauvegarder mes données…</source>
            <translation>Back Up My Data…</translation>
        </message>
        <message>
            <source>Restaurer des données…</source>
            <translation>Restore Data…</translation>
        </message>
        <message>
            <source>É&amp;dition</source>
            <translation>&amp;Edit</translation>
        </message>
        <message>
            <source>Réglages…</source>
            <translation>Settings…</translation>
        </message>
        <message>
            <source>&amp;Affichage</source>
            <translation>&amp;View</translation>
        </message>
        <message>
            <source>Agrandir l’aperçu</source>
            <translation>Enlarge the Preview</translation>
        </message>
        <message>
            <source>Réduire l’aperçu</source>
            <translation>Reduce the Preview</translation>
        </message>
        <message>
            <source>Taille d’aperçu normale</source>
            <translation>Normal Preview Size</translation>
        </message>
        <message>
            <source>Grand aperçu	Espace</source>
            <translation>Large Preview	Space</translation>
        </message>
        <message>
            <source>Plein écran</source>
            <translation>Full Screen</translation>
        </message>
        <message>
            <source>Panneaux</source>
            <translation>Panels</translation>
        </message>
        <message>
            <source>&amp;Bibliothèque</source>
            <translation>&amp;Library</translation>
        </message>
        <message>
            <source>Analyser à nouveau</source>
            <translation>Scan Again</translation>
        </message>
        <message>
            <source>Reconstruire l’index</source>
            <translation>Rebuild the Index</translation>
        </message>
        <message>
            <source>Aid&amp;e</source>
            <translation>&amp;Help</translation>
        </message>
        <message>
            <source>Annuler : %1</source>
            <translation>Undo: %1</translation>
        </message>
        <message>
            <source>Rétablir : %1</source>
            <translation>Redo: %1</translation>
        </message>
        <message>
            <source>Rétablir</source>
            <translation>Redo</translation>
        </message>
        <message>
            <source>La comparaison montre 12 familles au plus.</source>
            <translation>The comparison shows 12 families at most.</translation>
        </message>
    </context>
</TS>
