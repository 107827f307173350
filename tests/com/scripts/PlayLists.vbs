Plan 44

Class Disc
  Public TotalSongs
  Public Name
End Class

Class FailingDisc
  Public Property Get TotalSongs
    Err.Raise 1234, "FailingDisc", "thrown"
  End Property
End Class

Class CallingDisc
  Public Function TotalSongs
    TotalSongs = CByte(4)
  End Function
End Class

Function NewDisc(songs, name)
  Set NewDisc = New Disc
  NewDisc.TotalSongs = songs
  NewDisc.Name = name
End Function

Dim lists, disc1, playlist, index, name, value, i, names
Set lists = Made("PlayLists")
Equal lists.Count, CInt(0), "no playlists at first"
Equal lists.TotalSongs, CLng(0), "no songs at first"
Equal lists.TotalPlayLists, CLng(0), "no playlists in the total at first"

Set disc1 = NewDisc(12, "First")
lists.Add disc1
Same lists.Item(1), disc1, "an object of the script comes back"
lists.Add NewDisc("3", "Second")
Equal lists.Count, CInt(2), "the number of playlists"
Equal lists.TotalPlayLists, CLng(2), "the number of playlists as a total"
Equal lists.TotalSongs, CLng(15), "songs are added up, also out of a text"
disc1.TotalSongs = 100
Equal lists.TotalSongs, CLng(15), "a later change does not count"
lists.Add New CallingDisc
Equal lists.TotalSongs, CLng(19), "a function of the script is asked too"
lists.Add NewDisc(0.6, "Part")
Equal lists.TotalSongs, CLng(20), "a total is rounded"

Set playlist = Made("PlayList")
playlist.PlayListEntries.Add Made("M3UEntry")
playlist.PlayListEntries.Add Made("PlsEntry")
lists.Add playlist
Same lists.Item(5), playlist, "a playlist comes back"
Equal lists.TotalSongs, CLng(22), "its songs are added"
Equal lists.Item(5).PlayListEntries.Count, CInt(2), "its entries are reached"

lists.Add Nothing
Quiet "nothing is left out quietly"
Equal lists.Count, CInt(5), "nothing is no playlist"
lists.Add Made("ArtistItem")
Raised 438, "an object without songs"
Equal lists.Count, CInt(6), "it was added all the same"
lists.Add New FailingDisc
Failed 1234, "an error of the script itself"
Equal lists.Count, CInt(7), "its object was added all the same"
lists.Add NewDisc(2147483647, "Huge")
Raised 6, "a total of more than 32 bits"
Equal lists.TotalSongs, CLng(22), "the total is the old one"
lists.Add NewDisc("many", "Word")
Raised 13, "a word is no number of songs"
lists.Add NewDisc(Null, "Null")
Raised 94, "Null is no number of songs"
lists.Add NewDisc(Empty, "Empty")
Quiet "Empty is no song"
lists.Add "text"
Raised 13, "a text is no playlist"
lists.Add
Raised 450, "a playlist is left out"

index = "2"
Equal lists.Item(index).Name, "Second", "a position out of a text"
Equal index, "2", "the text stays a text"
Same lists.Item(12), Nothing, "nothing past the end, after a message box"
Set value = lists.Item(0)
Raised 5, "position 0"
Set value = lists.Item
Raised 450, "a position is left out"

name = "F*"
value = lists.Remove(name)
Equal value, False, "the result is always false"
Equal name, "F*", "the pattern is left alone"
Equal lists.TotalPlayLists, CLng(10), "the first that matches is removed"
Equal lists.TotalSongs, CLng(22), "the total stays"
Equal lists.Item(1).Name, "Second", "the next one takes its place"
value = lists.Remove("nobody")
Raised 438, "a function object without a name is asked for it"

Set lists = Made("PlayLists")
lists.Add Made("PlayList")
value = lists.Remove("*")
Raised 438, "a playlist has no name"
Set lists = Made("PlayLists")
For i = 1 To 3
  lists.Add NewDisc(i, "Disc " & i)
Next
For i = lists.Count To 1 Step -1
  names = names & lists.Item(i).Name & ";"
Next
Equal names, "Disc 3;Disc 2;Disc 1;", "a loop over all playlists"
Equal lists.TotalSongs, CLng(6), "the songs of a loop"

lists.Count = 1
Refused "the count is read only"
lists.TotalSongs = 1
Refused "the number of songs is read only"
lists.TotalPlayLists = 1
Refused "the number of playlists is read only"
lists.Nowhere
Refused "a member that is not there"
Done
