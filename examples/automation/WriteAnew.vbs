' Writes a playlist anew, in the order of its artists and titles, under a new name and for all four
' players. The songs stay where they are, and so does the old list.
'
'   cscript //nologo WriteAnew.vbs C:\Music\Mix.m3u "Mix by artist"
Option Explicit

Const StaysWhereItIs = 6

Dim manager, files, source, name, old, list, order, i, kind
If WScript.Arguments.Count <> 2 Then
  WScript.Echo "cscript //nologo WriteAnew.vbs PLAYLIST NEW-NAME"
  WScript.Quit 2
End If
source = WScript.Arguments(0)
name = WScript.Arguments(1) & ".m3u"
Set manager = CreateObject("NorvoPlayList.helperMan")
Set files = CreateObject("Scripting.FileSystemObject")

Set old = CreateObject("NorvoPlayList.PlayList")
old.PlayListType = TypeOf(source)
If Not old.ReadPlayList(source) Then
  WScript.Echo source & " cannot be read."
  WScript.Quit 1
End If

' An entry is taken only by a collection of its own type, so the new one has the type of the old.
Set list = CreateObject("NorvoPlayList.PlayList")
list.PlayListType = old.PlayListType
list.OriginalFileName = name
list.PlayListName = name
list.ASX_Version = old.ASX_Version
list.PlayListEntries.CollectionType = old.PlayListEntries.CollectionType
order = SortedSongs(old.PlayListEntries)
For i = 0 To UBound(order)
  ' Else the new list would name the place to which a move brings the song.
  If order(i).Entry_URLType < StaysWhereItIs Then order(i).Entry_URLType = StaysWhereItIs
  list.PlayListEntries.Add order(i)
Next
WriteForAllPlayers list
WScript.Echo list.PlayListEntries.TotalSongs & " songs"

' WriteRawPlayList answers False whatever comes of it; the files tell. Each gets the name that is
' free then, which can be asked for before.
Sub WriteForAllPlayers(list)
  Dim paths(3), number, path
  number = 0
  For Each kind In Array(1, 3, 6, 5)
    paths(number) = list.GetNewPlayListPath(name, kind)
    number = number + 1
  Next
  list.WriteRawPlayList
  For Each path In paths
    If Not files.FileExists(path) Then
      WScript.Echo "Not written: " & path
      WScript.Quit 1
    End If
    WScript.Echo path
  Next
End Sub

' The entries as an array, by artist and title; those without come first, by where they are.
Function SortedSongs(entries)
  Dim songs, at, one
  ReDim songs(entries.TotalSongs - 1)
  For i = 1 To entries.TotalSongs
    Set one = entries.Item(i)
    at = i - 1
    Do While at > 0
      If SortKey(songs(at - 1)) <= SortKey(one) Then Exit Do
      Set songs(at) = songs(at - 1)
      at = at - 1
    Loop
    Set songs(at) = one
  Next
  SortedSongs = songs
End Function

Function SortKey(song)
  SortKey = LCase(song.Entry_ArtistName & vbTab & song.Entry_SongName & vbTab & song.Entry_SourceURL)
End Function

' The playlist's type by its first lines.
Function TypeOf(path)
  If LCase(Right(path, 4)) = ".pls" Then
    TypeOf = manager.ParsePLSHeader(path)
  Else
    TypeOf = manager.ParseM3UHeader(path)
  End If
End Function
