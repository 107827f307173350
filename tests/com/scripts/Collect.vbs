' The old machine: every playlist is found, listed and turned into a generic file.
Plan 16

Const LIST_FILE = "C:\My Documents\Norvo Media\KVs\PlayLists.txt"
Dim files, controller, list, mode
Set files = CreateObject("Scripting.FileSystemObject")
Set controller = Made("helperMan")

Equal controller.GetAllPlaylists, True, "a scan succeeds"
Equal files.FileExists(LIST_FILE), True, "a scan leaves the list"
list = controller.GetPLSList
Equal UBound(list), CLng(5), "one path for each playlist"
Equal list(0), "C:\Music\Best.m3u.asx", "type 1 first"
Equal list(1), "C:\Music\Window.m3u", "type 2"
Equal list(2), "C:\Music\Road Trip.m3u", "type 3"
Equal list(3), "C:\Music\Amp.pls", "type 4"
Equal list(4), "C:\Music\Jukebox.m3u", "type 6 before type 5"
Equal list(5), "C:\Music\Sonic.pls", "type 5 last"
Equal files.FileExists(LIST_FILE), False, "reading the list consumes it"
Equal UBound(controller.GetPLSList), CLng(-1), "a consumed list is empty"

Equal controller.GetAllPlaylists, True, "another scan succeeds"
mode = "0"
Equal controller.GenericQueue(mode), True, "the queue has worked"
Equal mode, "0", "the mode is left alone"
Equal files.FileExists(LIST_FILE), False, "the queue consumes the list"
Equal controller.UpdateTotalFileSize, True, "the total is written"
Done
