' Lists every song of every playlist of this PC, with artist and title.
'
'   cscript //nologo ListSongs.vbs
Option Explicit

Dim manager, path
Set manager = CreateObject("NorvoPlayList.helperMan")
If Not manager.GetAllPlaylists() Then
  WScript.Echo "The drives cannot be scanned: are the product's settings there?"
  WScript.Quit 2
End If
For Each path In manager.GetPLSList()
  WScript.Echo path
  ListSongs path
Next

Sub ListSongs(path)
  Dim list, songs, i
  Set list = CreateObject("NorvoPlayList.PlayList")
  list.PlayListType = TypeOf(path)
  If Not list.ReadPlayList(path) Then WScript.Echo "  (not readable to its end)"
  Set songs = list.PlayListEntries
  For i = 1 To songs.TotalSongs
    WScript.Echo "  " & Described(songs.Item(i))
  Next
End Sub

' The playlist's type by its first lines.
Function TypeOf(path)
  If LCase(Right(path, 4)) = ".pls" Then
    TypeOf = manager.ParsePLSHeader(path)
  Else
    TypeOf = manager.ParseM3UHeader(path)
  End If
End Function

' "Artist: title", as far as list and song tell; else where it is.
Function Described(song)
  Described = song.Entry_SongName
  If Described = "" Then Described = song.Entry_SourceURL
  If song.Entry_ArtistName <> "" Then Described = song.Entry_ArtistName & ": " & Described
End Function
