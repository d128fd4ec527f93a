<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Conversion</name>
    <message>
        <source>The video ends before the time range starts.</source>
        <translation>Das Video endet, bevor der Bereich beginnt.</translation>
    </message>
    <message>
        <source>The video shows nothing in that time range.</source>
        <translation>In diesem Bereich zeigt das Video nichts.</translation>
    </message>
    <message>
        <source>ffmpeg wrote a file that does not play.</source>
        <translation>ffmpeg hat eine Datei geschrieben, die sich nicht abspielen lässt.</translation>
    </message>
</context>
<context>
    <name>DownloaderAge</name>
    <message>
        <source>1 day old</source>
        <translation>1 Tag alt</translation>
    </message>
    <message numerus="yes">
        <source>%n days old</source>
        <translation>
            <numerusform>%n Tag alt</numerusform>
            <numerusform>%n Tage alt</numerusform>
        </translation>
    </message>
    <message>
        <source>1 month old</source>
        <translation>1 Monat alt</translation>
    </message>
    <message numerus="yes">
        <source>%n months old</source>
        <translation>
            <numerusform>%n Monat alt</numerusform>
            <numerusform>%n Monate alt</numerusform>
        </translation>
    </message>
    <message>
        <source>over a year old</source>
        <translation>über ein Jahr alt</translation>
    </message>
    <message>
        <source>over two years old</source>
        <translation>über zwei Jahre alt</translation>
    </message>
    <message>
        <source>over three years old</source>
        <translation>über drei Jahre alt</translation>
    </message>
    <message>
        <source>over four years old</source>
        <translation>über vier Jahre alt</translation>
    </message>
    <message>
        <source>over five years old</source>
        <translation>über fünf Jahre alt</translation>
    </message>
    <message>
        <source>over six years old</source>
        <translation>über sechs Jahre alt</translation>
    </message>
    <message>
        <source>over seven years old</source>
        <translation>über sieben Jahre alt</translation>
    </message>
    <message>
        <source>over eight years old</source>
        <translation>über acht Jahre alt</translation>
    </message>
    <message>
        <source>over nine years old</source>
        <translation>über neun Jahre alt</translation>
    </message>
    <message>
        <source>over ten years old</source>
        <translation>über zehn Jahre alt</translation>
    </message>
    <message numerus="yes">
        <source>over %n years old</source>
        <translation>
            <numerusform>über %n Jahr alt</numerusform>
            <numerusform>über %n Jahre alt</numerusform>
        </translation>
    </message>
    <message>
        <source>Run “brew upgrade yt-dlp”</source>
        <translation>Führen Sie „brew upgrade yt-dlp“ aus</translation>
    </message>
    <message>
        <source>Run “sudo port upgrade yt-dlp”</source>
        <translation>Führen Sie „sudo port upgrade yt-dlp“ aus</translation>
    </message>
    <message>
        <source>Run “sudo yt-dlp -U”, or “brew upgrade yt-dlp”</source>
        <translation>Führen Sie „sudo yt-dlp -U“ oder „brew upgrade yt-dlp“ aus</translation>
    </message>
    <message>
        <source>Put it into /usr/local/bin, which is searched first</source>
        <translation>Legen Sie es in /usr/local/bin ab; dort wird zuerst gesucht</translation>
    </message>
    <message>
        <source>yt-dlp %1 is %2. A newer one may help. %3.</source>
        <translation>yt-dlp %1 ist %2. Ein neueres hilft vielleicht. %3.</translation>
    </message>
</context>
<context>
    <name>Error</name>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Malformed JSON at byte %1: %2</source>
        <translation>Fehlerhaftes JSON bei Byte %1: %2</translation>
    </message>
    <message>
        <source>%1: expected %2</source>
        <translation>%1: erwartet wurde %2</translation>
    </message>
    <message>
        <source>The document is not a JSON object</source>
        <translation>Das Dokument ist kein JSON-Objekt</translation>
    </message>
    <message>
        <source>text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>wahr oder falsch</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>eine ganze Zahl</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>the end</source>
        <translation>das Ende</translation>
    </message>
    <message>
        <source>a comma</source>
        <translation>ein Komma</translation>
    </message>
    <message>
        <source>Malformed JSON at byte %1: expected %2</source>
        <translation>Fehlerhaftes JSON bei Byte %1: erwartet wurde %2</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>%1 can neither be read nor kept</source>
        <translation>%1 lässt sich weder lesen noch aufbewahren</translation>
    </message>
    <message>
        <source>a UUID</source>
        <translation>eine UUID</translation>
    </message>
    <message>
        <source>a time like 2026-03-01T14:05:09Z</source>
        <translation>eine Zeit wie 2026-03-01T14:05:09Z</translation>
    </message>
    <message>
        <source>empty ffprobe output</source>
        <translation>leere Ausgabe von ffprobe</translation>
    </message>
    <message>
        <source>Process failed (exit %1): %2</source>
        <translation>Programm fehlgeschlagen (Ende %1): %2</translation>
    </message>
    <message>
        <source>Operation timed out</source>
        <translation>Zeit überschritten</translation>
    </message>
    <message>
        <source>%1 wrote more than %2 MB and was stopped</source>
        <translation>%1 hat mehr als %2 MB geschrieben und wurde angehalten</translation>
    </message>
</context>
<context>
    <name>FetchErrorText</name>
    <message>
        <source>Timed out after 60 s. YouTube may be rate-limiting — wait a minute and try again.</source>
        <translation>Nach 60 s abgebrochen. Vielleicht bremst YouTube – warten Sie eine Minute und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>YouTube wants browser cookies for this video. Try another video, or sign in via Safari first.</source>
        <translation>YouTube verlangt für dieses Video Cookies eines Browsers. Versuchen Sie ein anderes Video oder melden Sie sich zuerst im Browser an.</translation>
    </message>
    <message>
        <source>This video is private or members-only.</source>
        <translation>Dieses Video ist privat oder nur für Mitglieder.</translation>
    </message>
    <message>
        <source>Video unavailable (may be region-locked or removed).</source>
        <translation>Video nicht verfügbar (vielleicht regional gesperrt oder entfernt).</translation>
    </message>
    <message>
        <source>Couldn&apos;t fetch video info: %1</source>
        <translation>Angaben zum Video waren nicht zu bekommen: %1</translation>
    </message>
</context>
<context>
    <name>FormatOption</name>
    <message>
        <source>Best resolution</source>
        <translation>Beste Auflösung</translation>
    </message>
    <message>
        <source>Highest available stream.</source>
        <translation>Der beste verfügbare Stream.</translation>
    </message>
    <message>
        <source>Best resolution — %1p %2</source>
        <translation>Beste Auflösung – %1p %2</translation>
    </message>
    <message>
        <source>Plays in QuickTime, CapCut, Final Cut, iMovie.</source>
        <translation>Läuft in QuickTime, CapCut, Final Cut, iMovie.</translation>
    </message>
    <message>
        <source>Plays on modern macOS. May not play in older tools.</source>
        <translation>Läuft auf neuerem macOS, in älteren Programmen vielleicht nicht.</translation>
    </message>
    <message>
        <source>Will only play in VLC or IINA. QuickTime can&apos;t decode %1.</source>
        <translation>Läuft nur in VLC oder IINA. QuickTime kann %1 nicht dekodieren.</translation>
    </message>
    <message>
        <source>Mac Compatible — %1p H.264</source>
        <translation>Mac-kompatibel – %1p H.264</translation>
    </message>
    <message>
        <source>Lower resolution than max, but plays everywhere on Mac.</source>
        <translation>Geringere Auflösung, läuft aber überall auf dem Mac.</translation>
    </message>
    <message>
        <source>Apple ProRes 422</source>
        <translation>Apple ProRes 422</translation>
    </message>
    <message>
        <source>Editing format for Final Cut / Resolve. Files are very large.</source>
        <translation>Schnittformat für Final Cut / Resolve. Die Dateien sind sehr groß.</translation>
    </message>
    <message>
        <source>Editing format (Final Cut / Resolve). ~%1 at %2p — far larger than MP4.</source>
        <translation>Schnittformat (Final Cut / Resolve). ~%1 bei %2p – viel größer als MP4.</translation>
    </message>
    <message>
        <source>Audio only (MP3)</source>
        <translation>Nur Ton (MP3)</translation>
    </message>
    <message>
        <source>Strip video, best VBR audio.</source>
        <translation>Ohne Bild, Ton in bester VBR-Qualität.</translation>
    </message>
</context>
<context>
    <name>LibraryHandOver</name>
    <message>
        <source>the open window could not save it</source>
        <translation>das offene Fenster konnte sie nicht sichern</translation>
    </message>
    <message>
        <source>it holds no record</source>
        <translation>sie enthält keinen Eintrag</translation>
    </message>
</context>
<context>
    <name>MpvPlayer</name>
    <message>
        <source>The player could not be started: %1.</source>
        <translation>Der Player ließ sich nicht starten: %1.</translation>
    </message>
    <message>
        <source>The player could not be started.</source>
        <translation>Der Player ließ sich nicht starten.</translation>
    </message>
    <message>
        <source>Videos cannot be played from this kind of address.</source>
        <translation>Von Adressen dieser Art lassen sich keine Videos abspielen.</translation>
    </message>
</context>
<context>
    <name>PlaybackFailure</name>
    <message>
        <source>The server has no video at this address (404).</source>
        <translation>Der Server hat unter dieser Adresse kein Video (404).</translation>
    </message>
    <message>
        <source>The video is no longer at this address (410).</source>
        <translation>Das Video ist nicht mehr unter dieser Adresse (410).</translation>
    </message>
    <message>
        <source>The server does not allow access to this video (401).</source>
        <translation>Der Server erlaubt keinen Zugriff auf dieses Video (401).</translation>
    </message>
    <message>
        <source>The server does not allow access to this video (403).</source>
        <translation>Der Server erlaubt keinen Zugriff auf dieses Video (403).</translation>
    </message>
    <message>
        <source>The server refuses for now, as it was asked too often (429).</source>
        <translation>Der Server lehnt vorerst ab, weil er zu oft gefragt wurde (429).</translation>
    </message>
    <message>
        <source>The server refused to send the video.</source>
        <translation>Der Server hat es abgelehnt, das Video zu senden.</translation>
    </message>
    <message>
        <source>The server has a fault and cannot send the video.</source>
        <translation>Der Server ist gestört und kann das Video nicht senden.</translation>
    </message>
    <message>
        <source>The video&apos;s server was not found. Is this computer connected to the internet?</source>
        <translation>Der Server des Videos wurde nicht gefunden. Ist dieser Rechner mit dem Internet verbunden?</translation>
    </message>
    <message>
        <source>Cannot connect to the video&apos;s server.</source>
        <translation>Der Server des Videos ist nicht zu erreichen.</translation>
    </message>
    <message>
        <source>The video&apos;s server broke the connection.</source>
        <translation>Der Server des Videos hat die Verbindung abgebrochen.</translation>
    </message>
    <message>
        <source>The video&apos;s server took too long to answer.</source>
        <translation>Der Server des Videos hat zu lange nicht geantwortet.</translation>
    </message>
    <message>
        <source>The identity of the video&apos;s server could not be verified.</source>
        <translation>Die Identität des Servers ließ sich nicht prüfen.</translation>
    </message>
    <message>
        <source>No secure connection to the video&apos;s server could be made.</source>
        <translation>Zum Server des Videos kam keine sichere Verbindung zustande.</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>The file may not be read.</source>
        <translation>Die Datei darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The video is incomplete or damaged.</source>
        <translation>Das Video ist unvollständig oder beschädigt.</translation>
    </message>
    <message>
        <source>This kind of video cannot be played here.</source>
        <translation>Videos dieser Art lassen sich hier nicht abspielen.</translation>
    </message>
    <message>
        <source>Videos cannot be played from this kind of address.</source>
        <translation>Von Adressen dieser Art lassen sich keine Videos abspielen.</translation>
    </message>
    <message>
        <source>This is not a video.</source>
        <translation>Das ist kein Video.</translation>
    </message>
    <message>
        <source>There is neither a picture nor sound in it.</source>
        <translation>Es enthält weder Bild noch Ton.</translation>
    </message>
    <message>
        <source>The sound output of this computer cannot be used.</source>
        <translation>Die Tonausgabe dieses Rechners ist nicht zu benutzen.</translation>
    </message>
    <message>
        <source>The picture cannot be shown on this computer.</source>
        <translation>Das Bild lässt sich auf diesem Rechner nicht zeigen.</translation>
    </message>
    <message>
        <source>The video cannot be opened.</source>
        <translation>Das Video lässt sich nicht öffnen.</translation>
    </message>
</context>
<context>
    <name>PlayerModule</name>
    <message>
        <source>The player cannot be used: %1</source>
        <translation>Der Player ist nicht zu benutzen: %1</translation>
    </message>
    <message>
        <source>%1 was not found. Installing Clipwren again should bring it back.</source>
        <translation>%1 wurde nicht gefunden. Wenn Sie Clipwren neu installieren, sollte es wieder da sein.</translation>
    </message>
</context>
<context>
    <name>SaveArguments</name>
    <message>
        <source>“%1” is no format. Choose one of %2.</source>
        <translation>„%1“ ist kein Format. Wählen Sie eines von %2.</translation>
    </message>
    <message>
        <source>“%1” is no time range. Write START-END, as in 12.5-42 or 1:05-1:02:30.</source>
        <translation>„%1“ ist kein Bereich. Schreiben Sie ANFANG-ENDE wie 12.5-42 oder 1:05-1:02:30.</translation>
    </message>
    <message>
        <source>The time range “%1” ends before it starts.</source>
        <translation>Der Bereich „%1“ endet, bevor er beginnt.</translation>
    </message>
    <message>
        <source>The time range “%1” is too short to cut.</source>
        <translation>Der Bereich „%1“ ist zu kurz zum Schneiden.</translation>
    </message>
    <message>
        <source>An address is missing.</source>
        <translation>Eine Adresse fehlt.</translation>
    </message>
    <message>
        <source>One address at a time, please.</source>
        <translation>Bitte nur eine Adresse auf einmal.</translation>
    </message>
    <message>
        <source>The address is empty.</source>
        <translation>Die Adresse ist leer.</translation>
    </message>
    <message>
        <source>Usage: clipwren save [--format FORMAT] [--trim START-END] [--title TEXT] ADDRESS

  --format FORMAT   %1 or %2
  --trim START-END  keep this range only; times as 12.5 or [h:]mm:ss[.s]
  --title TEXT      the file&apos;s title instead of the video&apos;s
</source>
        <translation>Aufruf: clipwren save [--format FORMAT] [--trim ANFANG-ENDE] [--title TEXT] ADRESSE

  --format FORMAT      %1 oder %2
  --trim ANFANG-ENDE   nur diesen Bereich; Zeiten wie 12.5 oder [h:]mm:ss[.s]
  --title TEXT         Titel der Datei anstelle dessen des Videos
</translation>
    </message>
</context>
<context>
    <name>SaveCommand</name>
    <message>
        <source>Audio is saved whole: --trim does not go with %1.</source>
        <translation>Ton wird ganz gesichert: --trim passt nicht zu %1.</translation>
    </message>
    <message>
        <source>The video ends before the time range starts.</source>
        <translation>Das Video endet, bevor der Bereich beginnt.</translation>
    </message>
    <message>
        <source>The site does not offer this video in H.264.</source>
        <translation>Die Seite bietet dieses Video nicht in H.264 an.</translation>
    </message>
    <message>
        <source>yt-dlp was stopped before it had answered.</source>
        <translation>yt-dlp wurde angehalten, bevor es geantwortet hatte.</translation>
    </message>
    <message>
        <source> Tap &apos;View logs&apos; for details.</source>
        <translation> Näheres unter „Protokoll anzeigen“.</translation>
    </message>
    <message>
        <source>The tool was stopped before it had finished.</source>
        <translation>Das Werkzeug wurde angehalten, bevor es fertig war.</translation>
    </message>
    <message>
        <source>Not installed: %1. Install with “apt install yt-dlp ffmpeg” or “brew install yt-dlp ffmpeg”, so that it lies in one of %2.</source>
        <translation>Nicht installiert: %1. Installieren Sie es mit „apt install yt-dlp ffmpeg“ oder „brew install yt-dlp ffmpeg“, so dass es in einem von %2 liegt.</translation>
    </message>
</context>
<context>
    <name>SaveProgram</name>
    <message>
        <source>The file is saved as “%1”, but it is not in the list of files: %2. The next start of Clipwren tries again.</source>
        <translation>Die Datei ist als „%1“ gesichert, steht aber nicht in der Liste: %2. Der nächste Start von Clipwren versucht es noch einmal.</translation>
    </message>
    <message>
        <source>The file is saved as “%1”, but it is not in the list of files: %2.</source>
        <translation>Die Datei ist als „%1“ gesichert, steht aber nicht in der Liste: %2.</translation>
    </message>
    <message>
        <source>The list of files is in use. The next start of Clipwren adds this one.</source>
        <translation>Die Liste der Dateien ist belegt. Der nächste Start von Clipwren trägt diese ein.</translation>
    </message>
</context>
<context>
    <name>VerifiedDownload</name>
    <message>
        <source>Another file is in the way: %1</source>
        <translation>Eine andere Datei ist im Weg: %1</translation>
    </message>
    <message>
        <source>The downloaded file does not play; the disk may have been full: “%1”</source>
        <translation>Die heruntergeladene Datei lässt sich nicht abspielen; vielleicht war die Festplatte voll: „%1“</translation>
    </message>
</context>
<context>
    <name>WindowProgram</name>
    <message>
        <source>Clipwren is running already, but does not answer.</source>
        <translation>Clipwren läuft schon, antwortet aber nicht.</translation>
    </message>
</context>
<context>
    <name>YtDlpService</name>
    <message>
        <source>yt-dlp returned no metadata. The video may be region-locked, age-restricted, or YouTube is throttling.</source>
        <translation>yt-dlp hat nichts über das Video geliefert. Vielleicht ist es regional gesperrt oder altersbeschränkt, oder YouTube drosselt.</translation>
    </message>
    <message>
        <source>yt-dlp returned data we couldn&apos;t parse. Tap &apos;View logs&apos; for details.</source>
        <translation>yt-dlp hat Daten geliefert, die nicht zu lesen sind. Näheres unter „Protokoll anzeigen“.</translation>
    </message>
    <message>
        <source>yt-dlp finished without reporting an output path</source>
        <translation>yt-dlp war fertig, ohne die Datei zu nennen</translation>
    </message>
</context>
<context>
    <name>clipwren::AboutDialog</name>
    <message>
        <source>Not installed</source>
        <translation>Nicht installiert</translation>
    </message>
    <message>
        <source>About Clipwren</source>
        <translation>Über Clipwren</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>clipwren::AddressField</name>
    <message>
        <source>Video address</source>
        <translation>Adresse des Videos</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Paste an address and look it up (Ctrl+Shift+V)</source>
        <translation>Eine Adresse einfügen und nachschlagen (Strg+Umschalt+V)</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Noch einmal</translation>
    </message>
    <message>
        <source>View Logs</source>
        <translation>Protokoll anzeigen</translation>
    </message>
</context>
<context>
    <name>clipwren::Banner</name>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>clipwren::ConfirmationCard</name>
    <message>
        <source>Not this one</source>
        <translation>Nicht dieses</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Is this the right video?</source>
        <translation>Ist es dieses Video?</translation>
    </message>
</context>
<context>
    <name>clipwren::ConfirmationDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>clipwren::ContentView</name>
    <message>
        <source>Show or Hide Sidebar</source>
        <translation>Seitenleiste ein- oder ausblenden</translation>
    </message>
    <message>
        <source>F9</source>
        <translation>F9</translation>
    </message>
    <message>
        <source>Filter List</source>
        <translation>Liste filtern</translation>
    </message>
    <message>
        <source>Stop and Show</source>
        <translation>Anhalten und zeigen</translation>
    </message>
    <message>
        <source>A download is running. Showing a saved file stops it.</source>
        <translation>Ein Download läuft. Wird eine gesicherte Datei gezeigt, hält er an.</translation>
    </message>
    <message>
        <source>Stop and Look Up</source>
        <translation>Anhalten und nachschlagen</translation>
    </message>
    <message>
        <source>A download is running. Looking up another video stops it.</source>
        <translation>Ein Download läuft. Wird ein anderes Video nachgeschlagen, hält er an.</translation>
    </message>
    <message>
        <source>Stop the Download?</source>
        <translation>Download anhalten?</translation>
    </message>
    <message>
        <source>Width of the sidebar</source>
        <translation>Breite der Seitenleiste</translation>
    </message>
</context>
<context>
    <name>clipwren::DownloadDetailView</name>
    <message>
        <source>Reveal</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>File no longer at expected location</source>
        <translation>Die Datei ist nicht mehr an ihrem Ort</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Informationen</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Couldn&apos;t read file info: %1</source>
        <translation>Angaben zur Datei waren nicht zu lesen: %1</translation>
    </message>
</context>
<context>
    <name>clipwren::DownloadPipeline</name>
    <message>
        <source>Encoding to Apple ProRes 422</source>
        <translation>Wird in Apple ProRes 422 umgewandelt</translation>
    </message>
    <message>
        <source>yt-dlp says that it saved “%1”, which is no file.</source>
        <translation>yt-dlp will „%1“ gesichert haben; das ist keine Datei.</translation>
    </message>
    <message>
        <source>yt-dlp says that it saved “%1”, which is not in the downloads folder.</source>
        <translation>yt-dlp will „%1“ gesichert haben; das liegt nicht im Download-Ordner.</translation>
    </message>
    <message>
        <source>yt-dlp saved an empty file: “%1”.</source>
        <translation>yt-dlp hat eine leere Datei gesichert: „%1“.</translation>
    </message>
    <message>
        <source>%1 No space is left on the disk.</source>
        <translation>%1 Auf der Festplatte ist kein Platz mehr.</translation>
    </message>
    <message>
        <source>Starting…</source>
        <translation>Beginnt …</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Wird heruntergeladen</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>Another Clipwren is saving this video. Waiting…</source>
        <translation>Ein anderes Clipwren sichert dieses Video. Wartet …</translation>
    </message>
    <message>
        <source>Trimming</source>
        <translation>Wird geschnitten</translation>
    </message>
    <message>
        <source>Download complete</source>
        <translation>Download fertig</translation>
    </message>
    <message>
        <source>Download failed</source>
        <translation>Download fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>clipwren::DownloaderScreen</name>
    <message>
        <source>Open Downloads Folder</source>
        <translation>Download-Ordner öffnen</translation>
    </message>
    <message>
        <source>Reveal the Clipwren downloads folder in Finder</source>
        <translation>Den Download-Ordner von Clipwren zeigen</translation>
    </message>
    <message>
        <source>Download a video</source>
        <translation>Ein Video herunterladen</translation>
    </message>
    <message>
        <source>Paste a YouTube link. We&apos;ll fetch the video, you confirm it&apos;s the right one, then pick a format.</source>
        <translation>Fügen Sie einen YouTube-Link ein. Wir schlagen das Video nach, Sie bestätigen es und wählen ein Format.</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Start the download (Ctrl+Return)</source>
        <translation>Download beginnen (Strg+Eingabe)</translation>
    </message>
    <message>
        <source>View Logs</source>
        <translation>Protokoll anzeigen</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>Looking up video…</source>
        <translation>Video wird nachgeschlagen …</translation>
    </message>
    <message>
        <source>Download options</source>
        <translation>Optionen des Downloads</translation>
    </message>
    <message>
        <source>Download complete</source>
        <translation>Download fertig</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>%1 output</source>
        <translation>Ausgabe von %1</translation>
    </message>
    <message>
        <source>New Download</source>
        <translation>Neuer Download</translation>
    </message>
</context>
<context>
    <name>clipwren::DownloaderView</name>
    <message>
        <source>Enter a valid http(s) URL</source>
        <translation>Geben Sie eine gültige http(s)-Adresse ein</translation>
    </message>
</context>
<context>
    <name>clipwren::FetchingCard</name>
    <message>
        <source>Looking up video…</source>
        <translation>Video wird nachgeschlagen …</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>clipwren::FormatSection</name>
    <message>
        <source>This file won&apos;t play in QuickTime</source>
        <translation>Diese Datei läuft nicht in QuickTime</translation>
    </message>
    <message>
        <source>It will only open in **VLC** or **IINA**. Pick the *Mac Compatible* option below if you&apos;d rather lose some resolution and have it play everywhere.</source>
        <translation>Sie lässt sich nur in **VLC** oder **IINA** öffnen. Wählen Sie unten *Mac-kompatibel*, wenn sie mit etwas weniger Auflösung überall laufen soll.</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
</context>
<context>
    <name>clipwren::HistoryList</name>
    <message>
        <source>All-time</source>
        <translation>Seit jeher</translation>
    </message>
    <message>
        <source>Nothing downloaded yet</source>
        <translation>Noch nichts heruntergeladen</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Re-download</source>
        <translation>Noch einmal herunterladen</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Verlauf leeren</translation>
    </message>
    <message>
        <source>Copy URL</source>
        <translation>Adresse kopieren</translation>
    </message>
    <message>
        <source>Open URL in Browser</source>
        <translation>Adresse im Browser öffnen</translation>
    </message>
    <message>
        <source>Remove from History</source>
        <translation>Aus dem Verlauf entfernen</translation>
    </message>
</context>
<context>
    <name>clipwren::HistoryListModel</name>
    <message numerus="yes">
        <source>downloaded %n times</source>
        <translation>
            <numerusform>%n-mal heruntergeladen</numerusform>
            <numerusform>%n-mal heruntergeladen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>clipwren::InformationBox</name>
    <message>
        <source>MPEG-4 movie</source>
        <translation>MPEG-4-Film</translation>
    </message>
    <message>
        <source>Matroska video</source>
        <translation>Matroska-Video</translation>
    </message>
    <message>
        <source>MP3 audio</source>
        <translation>MP3-Ton</translation>
    </message>
    <message>
        <source>WebM video</source>
        <translation>WebM-Video</translation>
    </message>
    <message>
        <source>QuickTime movie</source>
        <translation>QuickTime-Film</translation>
    </message>
    <message>
        <source>%1 fps</source>
        <translation>%1 Bilder/s</translation>
    </message>
    <message>
        <source>%1 kbps</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Dimensions</source>
        <translation>Bildgröße</translation>
    </message>
    <message>
        <source>Codecs</source>
        <translation>Codecs</translation>
    </message>
    <message>
        <source>Frame rate</source>
        <translation>Bildrate</translation>
    </message>
    <message>
        <source>Bitrate</source>
        <translation>Bitrate</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Downloaded</source>
        <translation>Geladen</translation>
    </message>
    <message>
        <source>Trim</source>
        <translation>Schnitt</translation>
    </message>
    <message>
        <source>Clip length</source>
        <translation>Cliplänge</translation>
    </message>
    <message>
        <source>Plays in QuickTime</source>
        <translation>Läuft in QuickTime</translation>
    </message>
    <message>
        <source>macOS 10.13+</source>
        <translation>macOS 10.13+</translation>
    </message>
    <message>
        <source>Needs VLC or IINA</source>
        <translation>Braucht VLC oder IINA</translation>
    </message>
</context>
<context>
    <name>clipwren::InformationDialog</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>clipwren::Label</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>clipwren::LibraryListView</name>
    <message>
        <source>No title matches</source>
        <translation>Kein Titel passt</translation>
    </message>
    <message>
        <source>New Download</source>
        <translation>Neuer Download</translation>
    </message>
</context>
<context>
    <name>clipwren::LinearProgress</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>clipwren::LogViewer</name>
    <message>
        <source>(no output captured)</source>
        <translation>(keine Ausgabe)</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>clipwren::MainWindow</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>About Clipwren</source>
        <translation>Über Clipwren</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>clipwren::Notifier</name>
    <message>
        <source>Show Clipwren</source>
        <translation>Clipwren zeigen</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
</context>
<context>
    <name>clipwren::PlayerControls</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Player controls</source>
        <translation>Bedienung des Players</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Leave Full Screen</source>
        <translation>Vollbild verlassen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Show the length</source>
        <translation>Länge zeigen</translation>
    </message>
    <message>
        <source>Show the time left</source>
        <translation>Restzeit zeigen</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Ton an</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Ton aus</translation>
    </message>
</context>
<context>
    <name>clipwren::PlayerPane</name>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
</context>
<context>
    <name>clipwren::PreviewPane</name>
    <message>
        <source>Loading preview…</source>
        <translation>Vorschau wird geladen …</translation>
    </message>
</context>
<context>
    <name>clipwren::PreviewPlayerController</name>
    <message>
        <source>Preview unavailable</source>
        <translation>Keine Vorschau</translation>
    </message>
</context>
<context>
    <name>clipwren::ProgressSection</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>Gesichert in %1</translation>
    </message>
    <message>
        <source>Download complete</source>
        <translation>Download fertig</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>New download</source>
        <translation>Neuer Download</translation>
    </message>
</context>
<context>
    <name>clipwren::RecentList</name>
    <message>
        <source>Recent</source>
        <translation>Zuletzt</translation>
    </message>
    <message>
        <source>No downloads yet</source>
        <translation>Noch keine Downloads</translation>
    </message>
    <message>
        <source>Recent downloads</source>
        <translation>Letzte Downloads</translation>
    </message>
    <message>
        <source>Clear Recents</source>
        <translation>Liste leeren</translation>
    </message>
    <message>
        <source>Reveal in Finder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Re-download this URL</source>
        <translation>Diese Adresse noch einmal laden</translation>
    </message>
    <message>
        <source>Make QuickTime-compatible (re-encode)</source>
        <translation>QuickTime-kompatibel machen (umwandeln)</translation>
    </message>
    <message>
        <source>Copy Source URL</source>
        <translation>Quelladresse kopieren</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Aus der Liste entfernen</translation>
    </message>
    <message>
        <source>Clear Recents?</source>
        <translation>Liste leeren?</translation>
    </message>
    <message>
        <source>Removes 1 item from this list. Downloaded files are not deleted, and History is preserved.</source>
        <translation>Entfernt 1 Eintrag aus dieser Liste. Heruntergeladene Dateien werden nicht gelöscht, und der Verlauf bleibt.</translation>
    </message>
    <message numerus="yes">
        <source>Removes %n items from this list. Downloaded files are not deleted, and History is preserved.</source>
        <translation>
            <numerusform>Entfernt %n Eintrag aus dieser Liste. Heruntergeladene Dateien werden nicht gelöscht, und der Verlauf bleibt.</numerusform>
            <numerusform>Entfernt %n Einträge aus dieser Liste. Heruntergeladene Dateien werden nicht gelöscht, und der Verlauf bleibt.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>clipwren::RecentListModel</name>
    <message>
        <source>file missing</source>
        <translation>Datei fehlt</translation>
    </message>
    <message>
        <source>re-encoding</source>
        <translation>wird umgewandelt</translation>
    </message>
</context>
<context>
    <name>clipwren::Reencoder</name>
    <message>
        <source>Re-encode complete</source>
        <translation>Umwandlung fertig</translation>
    </message>
    <message>
        <source>Re-encode failed</source>
        <translation>Umwandlung fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>clipwren::SetupView</name>
    <message>
        <source>Not installed</source>
        <translation>Nicht installiert</translation>
    </message>
    <message>
        <source>Clipwren uses **yt-dlp** to download and **ffmpeg** to trim. Install them from Homebrew, then click *Re-check*.</source>
        <translation>Clipwren benutzt **yt-dlp** zum Herunterladen und **ffmpeg** zum Schneiden. Installieren Sie beide mit Homebrew und klicken Sie dann auf *Erneut prüfen*.</translation>
    </message>
    <message>
        <source>One-time setup</source>
        <translation>Einmalige Einrichtung</translation>
    </message>
    <message>
        <source>Copy command</source>
        <translation>Befehl kopieren</translation>
    </message>
    <message>
        <source>Install with Homebrew:</source>
        <translation>Mit Homebrew installieren:</translation>
    </message>
    <message>
        <source>Re-check</source>
        <translation>Erneut prüfen</translation>
    </message>
</context>
<context>
    <name>clipwren::ShortcutsDialog</name>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Open the menu</source>
        <translation>Menü öffnen</translation>
    </message>
    <message>
        <source>Show or hide the sidebar</source>
        <translation>Seitenleiste ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Filter the list by title</source>
        <translation>Liste nach Titel filtern</translation>
    </message>
    <message>
        <source>Show these shortcuts</source>
        <translation>Diese Kürzel zeigen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>New download</source>
        <translation>Neuer Download</translation>
    </message>
    <message>
        <source>Look up the address on the clipboard</source>
        <translation>Adresse der Zwischenablage nachschlagen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Look for the tools again</source>
        <translation>Werkzeuge erneut suchen</translation>
    </message>
    <message>
        <source>Lists</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>Show the file; in History: download it again</source>
        <translation>Datei zeigen; im Verlauf: noch einmal laden</translation>
    </message>
    <message>
        <source>Open the row&apos;s menu</source>
        <translation>Menü der Zeile öffnen</translation>
    </message>
    <message>
        <source>Remove from Recent</source>
        <translation>Aus „Zuletzt“ entfernen</translation>
    </message>
    <message>
        <source>Bring the removed one back</source>
        <translation>Entferntes zurückholen</translation>
    </message>
    <message>
        <source>Trimming</source>
        <translation>Schneiden</translation>
    </message>
    <message>
        <source>Start here</source>
        <translation>Hier beginnen</translation>
    </message>
    <message>
        <source>End here</source>
        <translation>Hier enden</translation>
    </message>
    <message>
        <source>One picture back, forward</source>
        <translation>Ein Bild zurück, vor</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Play the clip</source>
        <translation>Clip abspielen</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Player</translation>
    </message>
    <message>
        <source>Back, forward</source>
        <translation>Zurück, vor</translation>
    </message>
    <message>
        <source>Louder, quieter</source>
        <translation>Lauter, leiser</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Ton aus</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
</context>
<context>
    <name>clipwren::SidebarView</name>
    <message>
        <source>Recent</source>
        <translation>Zuletzt</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Open downloads folder in Finder</source>
        <translation>Download-Ordner öffnen</translation>
    </message>
    <message>
        <source>The lists could not be saved</source>
        <translation>Die Listen ließen sich nicht sichern</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Noch einmal</translation>
    </message>
    <message>
        <source>Filter by title</source>
        <translation>Nach Titel filtern</translation>
    </message>
    <message>
        <source>%1. What is new in them is lost when Clipwren is closed before they can be saved.</source>
        <translation>%1. Was neu in ihnen ist, geht verloren, wenn Clipwren vor dem Sichern geschlossen wird.</translation>
    </message>
</context>
<context>
    <name>clipwren::SleepInhibitor</name>
    <message>
        <source>A video is being downloaded or converted</source>
        <translation>Ein Video wird heruntergeladen oder umgewandelt</translation>
    </message>
</context>
<context>
    <name>clipwren::Spinner</name>
    <message>
        <source>In progress</source>
        <translation>In Arbeit</translation>
    </message>
</context>
<context>
    <name>clipwren::SystemDesktop</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>clipwren::ThumbnailView</name>
    <message>
        <source>Thumbnail</source>
        <translation>Vorschaubild</translation>
    </message>
</context>
<context>
    <name>clipwren::TimeField</name>
    <message>
        <source>%1 %2</source>
        <comment>name and time, as read aloud</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Not a time. Type it as 1:05.3, 65.3 or 1:02:05.</source>
        <translation>Das ist keine Zeit. Schreiben Sie sie wie 1:05.3, 65.3 oder 1:02:05.</translation>
    </message>
</context>
<context>
    <name>clipwren::TimeStat</name>
    <message>
        <source>%1 %2</source>
        <comment>name and time, as read aloud</comment>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>clipwren::TitleField</name>
    <message>
        <source>Save as</source>
        <translation>Sichern als</translation>
    </message>
    <message>
        <source>Reset to the video&apos;s original title</source>
        <translation>Titel des Videos wiederherstellen</translation>
    </message>
    <message>
        <source>Filename</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>Final file: %1</source>
        <translation>Datei: %1</translation>
    </message>
</context>
<context>
    <name>clipwren::TopBar</name>
    <message>
        <source>Show or Hide Sidebar</source>
        <translation>Seitenleiste ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
</context>
<context>
    <name>clipwren::TrimSection</name>
    <message>
        <source>Trim before saving</source>
        <translation>Vor dem Sichern schneiden</translation>
    </message>
    <message>
        <source>Play Clip</source>
        <translation>Clip abspielen</translation>
    </message>
    <message>
        <source>Play from start to end (Shift+Space). Space plays and pauses, comma and full stop step by one frame.</source>
        <translation>Vom Anfang bis zum Ende abspielen (Umschalt+Leertaste). Die Leertaste spielt ab und hält an, Komma und Punkt gehen ein Bild weiter.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Trim</source>
        <translation>Schnitt</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Click to type where the clip starts. The key I starts it at the picture shown.</source>
        <translation>Klicken, um den Anfang einzutippen. Die Taste I setzt ihn auf das gezeigte Bild.</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Click to type where the clip ends. The key O ends it at the picture shown.</source>
        <translation>Klicken, um das Ende einzutippen. Die Taste O setzt es auf das gezeigte Bild.</translation>
    </message>
    <message>
        <source>Clip</source>
        <translation>Clip</translation>
    </message>
</context>
<context>
    <name>clipwren::TrimSlider</name>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
</context>
<context>
    <name>clipwren::UndoLine</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Removed “%1”</source>
        <translation>„%1“ entfernt</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Usage: clipwren [ADDRESS]
       clipwren --new-download
       clipwren save [OPTION]… ADDRESS
       clipwren --help | --version

Opens the window, and looks the address up there. With “--new-download”, shows
where an address is typed. With “save”, saves the video without a window and
prints the file&apos;s path:
</source>
        <translation>Aufruf: clipwren [ADRESSE]
        clipwren --new-download
        clipwren save [OPTION]… ADRESSE
        clipwren --help | --version

Öffnet das Fenster und schlägt die Adresse dort nach. Mit „--new-download“ zeigt es,
wo eine Adresse eingegeben wird. Mit „save“ sichert das Programm das Video ohne
Fenster und schreibt den Pfad der Datei:
</translation>
    </message>
</context>
</TS>
