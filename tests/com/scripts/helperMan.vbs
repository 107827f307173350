Plan 39

Dim controller, mode, patterns, file, header, keys, value
Set controller = Made("helperMan")

Equal controller.PlayListToIni("Mix.m3u"), "Mix.ini", "the generic name of a playlist"
Equal controller.PlayListToIni("a.b.pls"), "a.b.ini", "the last point counts"
Equal controller.PlayListToIni("plain"), "plain.ini", "a name without a point"
Equal controller.PlayListToIni(""), ".ini", "an empty name"
Equal controller.PlayListToIni(5), "5.ini", "a number as a name"
Equal controller.PlayListToIni(ManyScripts() & ".asx"), ManyScripts() & ".ini", "many scripts"
value = controller.PlayListToIni(Null)
Raised 94, "Null is no name"
value = controller.PlayListToIni()
Raised 450, "a name is left out"

Equal controller.ParseM3UHeader("C:\Class\Window.m3u"), CLng(2), "type 2 by its tag"
Equal controller.ParseM3UHeader("C:\Class\Mix.m3u"), CLng(3), "type 3 by its mark"
Equal controller.ParseM3UHeader("C:\Class\Jukebox.m3u"), CLng(6), "type 6 by its path"
Equal controller.ParseM3UHeader("C:\Class\Unknown.m3u"), CLng(0), "no known first line"
Equal controller.ParseM3UHeader("C:\Class\missing.m3u"), CLng(0), "a missing file"
Equal controller.ParsePLSHeader("C:\Class\Amp.pls"), CLng(4), "type 4 by its version"
Equal controller.ParsePLSHeader("C:\Class\Sonic.pls"), CLng(5), "type 5 by its key"
Equal controller.ParsePLSHeader("C:\Class\Third.pls"), CLng(0), "an unknown version"
value = controller.ParsePLSHeader(Null)
Raised 94, "Null is no path"
value = controller.ParseM3UHeader("a", "b")
Raised 450, "a path too many"

file = 1
header = Null
keys = "keys"
value = controller.DataGrabber("file", "header", "keys")
Equal value, "", "the grabber gives nothing"
value = controller.DataGrabber(file, header, keys)
Raised 94, "Null is no text"
header = True
Equal controller.DataGrabber(file, header, keys), "", "the grabber takes variables"
Equal file, CInt(1), "a number stays a number"
Equal header, True, "a boolean stays a boolean"
Equal keys, "keys", "a text stays as it is"
value = controller.DataGrabber(file, , keys)
Raised 13, "a variable in the middle is missing"
value = controller.DataGrabber(file, header)
Raised 450, "a variable is left out"

patterns = "*.mp3,*.wma"
Equal controller.MigrateMediaByType(patterns), True, "a search for media succeeds"
Equal patterns, "*.mp3,*.wma", "the patterns are left alone"
value = controller.MigrateMediaByType(Array("*.mp3"))
Raised 13, "an array is no pattern"

mode = CByte(5)
Equal controller.GenericQueue(mode), False, "an unknown mode does nothing"
Equal mode, CByte(5), "the mode is left alone"
value = controller.GenericQueue("one")
Raised 13, "a word is no mode"
value = controller.GenericQueue
Raised 450, "a mode is left out"
Equal UBound(controller.GetPLSList), CLng(-1), "without a scan there is no list"
Equal controller.GetAllPlaylists, True, "a scan succeeds on the new machine too"
Equal controller.UpdateTotalFileSize, True, "the total is written"

controller.GetPLSList = 1
Refused "a method takes no value"
controller.Nowhere
Refused "a member that is not there"
Equal controller.playlisttoINI("x"), "x.ini", "a name in another case"
Done
