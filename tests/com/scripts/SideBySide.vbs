' One of two hosts that read at the same moment; its argument begins the names of its playlists.
Plan 10

Dim i, list, path
For i = 1 To 10
  Set list = Made("PlayList")
  list.PlayListType = 3
  path = "C:\Side\" & WScript.Arguments(0) & i & ".m3u"
  Equal list.ReadPlayList(path), True, path
Next
Done
