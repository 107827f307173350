' Repairs a playlist: tells which of its references lead to nothing, and writes it without them, as a
' neutral file and for all four players. The old list stays as it is, and so do the songs.
'
'   cscript //nologo Repair.vbs C:\Music\Mix.m3u
Option Explicit

Const Switch = "Software\Norvo\Debug\VBDebugOut"
Const ToFile = 3
Const StaysWhereItIs = 6

Dim shell, files, logFile, seen, before, manager, source, name, old, line, missing
If WScript.Arguments.Count <> 1 Then
  WScript.Echo "cscript //nologo Repair.vbs PLAYLIST"
  WScript.Quit 2
End If
Set shell = CreateObject("WScript.Shell")
Set files = CreateObject("Scripting.FileSystemObject")
seen = 0
missing = 0
source = WScript.Arguments(0)
name = NameWithoutPoints(files.GetBaseName(source)) & " repaired.m3u"

' The library tells of the items that it drops in its log alone, and asks once whether there is one:
' it is turned on before the first line, and put back as it was.
before = RegistryValue("HKCU\" & Switch)
If before = "" Then before = RegistryValue("HKLM\" & Switch)
If before = "" Then before = 0
shell.RegWrite "HKCU\" & Switch, ToFile, "REG_DWORD"
logFile = LogFolder() & "VBLog.txt"
Set manager = CreateObject("NorvoPlayList.helperMan")
If Not IsLogWritten() Then Fail "Nothing can be written to " & logFile

Set old = CreateObject("NorvoPlayList.PlayList")
old.PlayListType = TypeOf(source)
If old.PlayListType = 0 Then Fail source & " is no playlist of a known type"
NewLines
If Not old.ReadPlayList(source) Then Fail source & " cannot be read"
For Each line In NewLines()
  TellMissing line, "NVERR_FILE_NOT_FOUND", "File Not Found: "
  TellMissing line, "NVERR_INVALID_ARG", "Invalid Argument or Bad Data: "
Next
PutBack
WScript.Echo missing & " left out, " & old.PlayListEntries.TotalSongs & " kept"
If old.PlayListEntries.TotalSongs = 0 Then WScript.Quit 1
WriteRepaired Repaired(old)

' What was read of the list, as a list of another name.
Function Repaired(old)
  Dim i
  Set Repaired = CreateObject("NorvoPlayList.PlayList")
  Repaired.PlayListType = old.PlayListType
  Repaired.OriginalFileName = name
  Repaired.PlayListName = name
  Repaired.ASX_Version = old.ASX_Version
  Repaired.ASX_Title = old.ASX_Title
  ' An entry is taken only by a collection of its own type.
  Repaired.PlayListEntries.CollectionType = old.PlayListEntries.CollectionType
  For i = 1 To old.PlayListEntries.TotalSongs
    Repaired.PlayListEntries.Add old.PlayListEntries.Item(i)
  Next
End Function

' The neutral file first: it is to know the songs as they were found.
Sub WriteRepaired(list)
  If Not list.WriteGeneric(name) Then Fail "The neutral file cannot be written"
  LeaveSongs list.PlayListEntries
  WriteForAllPlayers list
End Sub

' Else the players' lists would name the places to which a move brings the songs.
Sub LeaveSongs(songs)
  Dim i
  For i = 1 To songs.TotalSongs
    If songs.Item(i).Entry_URLType < StaysWhereItIs Then songs.Item(i).Entry_URLType = StaysWhereItIs
  Next
End Sub

' WriteRawPlayList answers False whatever comes of it; the files tell. Each gets the name that is
' free then, which can be asked for before.
Sub WriteForAllPlayers(list)
  Dim paths(3), number, kind, path
  number = 0
  For Each kind In Array(1, 3, 6, 5)
    paths(number) = list.GetNewPlayListPath(name, kind)
    number = number + 1
  Next
  list.WriteRawPlayList
  For Each path In paths
    If Not files.FileExists(path) Then Fail path & " cannot be written"
    WScript.Echo path
  Next
End Sub

Sub TellMissing(line, tag, mark)
  If Left(line, Len(tag)) <> tag Then Exit Sub
  WScript.Echo "left out: " & Mid(line, InStr(line, mark) + Len(mark))
  missing = missing + 1
End Sub

' The library cuts a new name at its first point.
Function NameWithoutPoints(text)
  NameWithoutPoints = Replace(text, ".", " ")
End Function

' The lines of the log since the last look at it. It is text of the system's 8-bit page.
Function NewLines()
  Dim file, text
  text = ""
  If files.FileExists(logFile) Then
    Set file = files.OpenTextFile(logFile)
    If Not file.AtEndOfStream Then text = file.ReadAll()
    file.Close
  End If
  NewLines = Split(Mid(text, seen + 1), vbCrLf)
  seen = Len(text)
End Function

' An entry that is asked for its size before it has an address writes a line to the log.
Function IsLogWritten()
  Dim length, size
  NewLines
  length = seen
  size = CreateObject("NorvoPlayList.Entry").FileSize
  NewLines
  IsLogWritten = seen > length
End Function

' The folder of the log: the product's, else that of the DLL.
Function LogFolder()
  Dim identifier
  LogFolder = RegistryValue("HKCU\SOFTWARE\Norvo\Migration\ProductFolder")
  If LogFolder = "" Then LogFolder = RegistryValue("HKLM\SOFTWARE\Norvo\Migration\ProductFolder")
  If LogFolder = "" Then
    identifier = RegistryValue("HKCR\NorvoPlayList.PlayList\CLSID\")
    LogFolder = files.GetParentFolderName( _
        RegistryValue("HKCR\CLSID\" & identifier & "\InprocServer32\"))
  End If
  If Right(LogFolder, 1) <> "\" Then LogFolder = LogFolder & "\"
End Function

' Empty when there is none.
Function RegistryValue(name)
  On Error Resume Next
  RegistryValue = ""
  RegistryValue = shell.RegRead(name)
End Function

Sub PutBack
  shell.RegWrite "HKCU\" & Switch, before, "REG_DWORD"
End Sub

Sub Fail(text)
  PutBack
  WScript.Echo text & "."
  WScript.Quit 2
End Sub

' The playlist's type by its first lines.
Function TypeOf(path)
  If LCase(Right(path, 4)) = ".pls" Then
    TypeOf = manager.ParsePLSHeader(path)
  Else
    TypeOf = manager.ParseM3UHeader(path)
  End If
End Function
