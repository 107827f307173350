Plan 64

Class PlainThing
  Public Entry_EntryType
  Public Name
End Class

' Counts how often its type is read.
Class CountedThing
  Public Kind
  Public Reads
  Public Property Get Entry_EntryType
    Reads = Reads + 1
    Entry_EntryType = Kind
  End Property
  Public Property Get Name
    Name = "Counted"
  End Property
End Class

Dim ended
ended = 0
Class MortalThing
  Public Entry_EntryType
  Private Sub Class_Terminate
    ended = ended + 1
  End Sub
End Class

Class FailingThing
  Public Property Get Entry_EntryType
    Err.Raise 1234, "FailingThing", "thrown"
  End Property
End Class

Function NewThing(kind, name)
  Set NewThing = New PlainThing
  NewThing.Entry_EntryType = kind
  NewThing.Name = name
End Function

Function NewSong(kind, title)
  Set NewSong = Made("M3UEntry")
  NewSong.Entry_EntryType = kind
  NewSong.Entry_SongTitle = title
End Function

Dim entries, thing, song, counted, index, name, value, i, titles
Set entries = Made("Entries")
Equal entries.Count, CInt(0), "no entries at first"
Equal entries.TotalSongs, CLng(0), "no songs at first"
Equal entries.CollectionType, CLng(0), "no type at first"
Same entries.Item(1), Nothing, "nothing in an empty collection"
entries.CollectionType = "3"
Equal entries.CollectionType, CLng(3), "a type out of a text"
entries.CollectionType = "three"
Raised 13, "a word is no type"

' What is taken, and what is dropped without a word.
Set song = NewSong(3, "first")
entries.Add song
Equal entries.Count, CInt(1), "an entry of the type is taken"
Same entries.Item(1), song, "the very same entry comes back"
entries.Add NewSong(4, "other")
Quiet "an entry of another type is dropped quietly"
entries.Add Made("Entry")
Quiet "an entry under plain names is dropped quietly"
entries.Add Nothing
Quiet "nothing is dropped quietly"
entries.Add Empty
Quiet "Empty is dropped quietly"
entries.Add New FailingThing
Quiet "an object that raises is dropped quietly"
Equal entries.Count, CInt(1), "nothing of these was taken"
entries.Add 3
Raised 13, "a number is no entry"
entries.Add Null
Raised 13, "Null is no entry"
entries.Add
Raised 450, "an entry is left out"
entries.Add song, song
Raised 450, "an entry too many"

' The script's own objects.
Set thing = NewThing(CLng(3), "One")
entries.Add thing
Same entries.Item(2), thing, "an object with public variables comes back"
entries.Add NewThing("3", "Two")
Equal entries.Item(3).Name, "Two", "an object that nobody else holds is kept"
Set counted = New CountedThing
counted.Kind = 3
entries.Add counted
Same entries.Item(4), counted, "an object with a property procedure comes back"
Equal counted.Reads, CInt(1), "its type was read once"
counted.Kind = 4
entries.Add counted
Equal counted.Reads, CInt(3), "a type that differs is read twice"
Equal entries.TotalSongs, CLng(4), "the number of songs"
entries.Item(2).Name = "Renamed"
Equal thing.Name, "Renamed", "a value set through the collection is the object's"
entries.Add thing
Same entries.Item(5), entries.Item(2), "the same object twice"

For i = 1 To entries.Count
  titles = titles & VarType(entries.Item(i).Entry_EntryType) & " "
Next
Equal titles, "3 3 8 2 3 ", "a loop over all entries"

' Positions.
index = "2"
Same entries.Item(index), thing, "a position out of a text"
Equal index, "2", "the text stays a text"
index = 1.5
Same entries.Item(index), thing, "a half goes to the even position"
Equal index, CDbl(1.5), "the number stays as it is"
Same entries.Item(6), Nothing, "nothing past the end"
Same entries.Item(2147483647), Nothing, "nothing far past the end"
Set value = entries.Item(0)
Raised 5, "position 0"
Set value = entries.Item(-1)
Raised 5, "a position below 0"
Set value = entries.Item(2147483648)
Raised 6, "a position of more than 32 bits"
Set value = entries.Item("x")
Raised 13, "a word is no position"
Set value = entries.Item(Null)
Raised 94, "Null is no position"
Set value = entries.Item(Empty)
Raised 5, "Empty is position 0"
Set value = entries.Item
Raised 450, "a position is left out"
Set value = entries.Item(1, 2)
Raised 450, "a position too many"

' Removing.
value = entries.Remove("Two")
Raised 438, "the first entry has no name"
Equal entries.Count, CInt(5), "nothing was removed"
Set entries = Made("Entries")
Equal entries.Remove("x"), False, "nothing to remove"
entries.Add NewThing(0, "One")
entries.Add NewThing(0, "Two")
entries.Add NewThing(0, "Three")
name = "T*"
Equal entries.Remove(name), False, "the result is always false"
Equal name, "T*", "the pattern is left alone"
Equal entries.Count, CInt(2), "the first that matches is removed, and no other"
Equal entries.Item(2).Name, "Three", "the next one takes its place"
Equal entries.Remove("three"), False, "letters count as they are"
Equal entries.Count, CInt(2), "nothing was removed by another case"
value = entries.Remove("[")
Raised 93, "a pattern that is none"
value = entries.Remove(Null)
Raised 94, "Null is no pattern"
entries.Add NewThing(0, 5)
Equal entries.Remove(5), False, "a number as a pattern"
Equal entries.Count, CInt(2), "a number as a name"

' What holds whom.
Set value = Made("PlayList")
value.PlayListType = 3
Set entries = value.PlayListEntries
entries.CollectionType = 3
entries.Add NewSong(3, "kept")
Set value = Nothing
Equal entries.Item(1).Entry_SongTitle, "kept", "entries outlive their playlist"
Set song = entries.Item(1)
Set entries = Nothing
Equal song.Entry_SongTitle, "kept", "an entry outlives its collection"

Set entries = Made("Entries")
Set thing = New MortalThing
entries.Add thing
entries.Add thing
Set thing = Nothing
Equal ended, CInt(0), "a collection keeps its objects"
Set thing = entries.Item(2)
Set entries = Nothing
Equal ended, CInt(0), "so does a variable"
Set thing = Nothing
Equal ended, CInt(1), "nobody keeps an object for longer"

Set entries = Made("Entries")
entries.Count = 3
Refused "the count is read only"
entries.TotalSongs = 3
Refused "the number of songs is read only"
entries.Nowhere
Refused "a member that is not there"
Equal entries.cOUNT, CInt(0), "a name in another case"
value = entries.Count(1)
Raised 450, "a property with an argument too many"
Done
