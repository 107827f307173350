Plan 86

Dim entry, other, tagged
Set entry = Made("Entry")

' What a new entry holds.
Equal entry.AlbumName, "", "album at first"
Equal entry.ArtistName, "", "artist at first"
Equal entry.SongName, "", "song name at first"
Equal entry.CreationDate, "", "creation date at first"
Equal entry.Duration, "", "duration at first"
Equal entry.EntryType, CLng(0), "entry type at first"
Equal entry.FileName, "", "file name at first"
Equal entry.FileSize, CDbl(0), "file size at first"
Equal entry.Genre, "", "genre at first"
Equal entry.NativeFormat, CLng(0), "native format at first"
Equal entry.PlayListName, "", "playlist name at first"
Equal entry.SongTitle, "", "song title at first"
Equal entry.SourceURL, "", "source address at first"
Equal entry.Urltype, CLng(0), "address type at first"
Equal entry.TrackNumber, "", "track number at first"
Equal entry.DestinationPath, "", "no destination without a file name"
Equal entry.GetID3TagInfo, False, "no tag without a source address"

' Texts.
entry.AlbumName = "  An album " & Chr(0) & "hidden"
Equal entry.AlbumName, "An album", "an album is cut at the NUL and trimmed"
entry.ArtistName = " An artist "
Equal entry.ArtistName, "An artist", "an artist is trimmed"
entry.SongName = Chr(0) & "hidden"
Equal entry.SongName, "", "a song name that begins with a NUL is empty"
entry.CreationDate = " 1999 "
Equal entry.CreationDate, " 1999 ", "a creation date is kept as it is"
Equal Len(ManyScripts()), CLng(5), "the text in many scripts is there"
entry.Genre = ManyScripts()
Equal entry.Genre, ManyScripts(), "a genre in many scripts"
entry.SongName = ManyScripts()
Equal entry.SongName, ManyScripts(), "a song name in many scripts"
entry.SourceURL = ManyScripts()
Equal entry.SourceURL, ManyScripts(), "a source address in many scripts"
entry.TrackNumber = 7
Equal entry.TrackNumber, "7", "a track number is a text"
entry.CreationDate = True
Equal entry.CreationDate, "True", "a boolean as a text"
entry.CreationDate = 1.5
Equal entry.CreationDate, "1.5", "a number as a text"
entry.CreationDate = CCur(2.25)
Equal entry.CreationDate, "2.25", "a currency as a text"
entry.CreationDate = CByte(200)
Equal entry.CreationDate, "200", "a byte as a text"
entry.CreationDate = DateSerial(2003, 5, 14) + TimeSerial(10, 12, 5)
Equal entry.CreationDate, "5/14/2003 10:12:05 AM", "a date as a text"
entry.CreationDate = Empty
Equal entry.CreationDate, "", "Empty as a text"
entry.CreationDate = "kept"
entry.CreationDate = Null
Raised 94, "Null is no text"
entry.CreationDate = entry
Raised 13, "an object is no text"
entry.CreationDate = Array(1, 2)
Raised 13, "an array is no text"
Equal entry.CreationDate, "kept", "after an error the value is the old one"

' A duration is any value, kept as a text.
entry.Duration = 215
Equal entry.Duration, "215", "a duration in seconds"
entry.Duration = 0.5
Equal entry.Duration, "0.5", "a duration with a fraction"
entry.Duration = Null
Raised 94, "Null is no duration"

' Numbers.
entry.EntryType = "12"
Equal entry.EntryType, CLng(12), "a text as a number"
entry.EntryType = " -1E1 "
Equal entry.EntryType, CLng(-10), "a text with an exponent as a number"
entry.EntryType = 2.5
Equal entry.EntryType, CLng(2), "a half is rounded to the even number below"
entry.EntryType = 3.5
Equal entry.EntryType, CLng(4), "a half is rounded to the even number above"
entry.EntryType = True
Equal entry.EntryType, CLng(-1), "a boolean as a number"
entry.EntryType = Empty
Equal entry.EntryType, CLng(0), "Empty as a number"
entry.EntryType = 4
entry.EntryType = "abc"
Raised 13, "a word is no number"
entry.EntryType = ""
Raised 13, "the empty text is no number"
entry.EntryType = 2147483648
Raised 6, "a number of more than 32 bits"
entry.EntryType = Null
Raised 94, "Null is no number"
entry.EntryType = Nothing
Raised 13, "an object is no number"
Equal entry.EntryType, CLng(4), "after an error the number is the old one"
entry.NativeFormat = CByte(3)
Equal entry.NativeFormat, CLng(3), "a native format out of a byte"
entry.Urltype = "9"
Equal entry.Urltype, CLng(9), "an address type out of a text"

' The entry's own ways.
entry.PlayListName = "Mix.pls"
Equal entry.PlayListName, "", "the playlist's name is never handed out"
Set other = Made("Entry")
other.ArtistName = "Artist"
Equal other.SongTitle, "", "no title out of an artist alone"
other.SongName = "Song"
Equal other.SongTitle, "", "the first reading composes the title and is empty"
Equal other.SongTitle, "Artist - Song", "the second one hands it out"
other.SongTitle = "Another"
Equal other.SongTitle, "Artist - Song", "a composed title stays"
Set other = Made("Entry")
other.SongTitle = ""
other.SongTitle = "First"
other.SongTitle = "Second"
Equal other.SongTitle, "First", "the first title stays"
other.FileName = "x.mp3"
Equal other.FileName, "", "no file name without a source address"
other.Urltype = 9
other.SourceURL = "http://host/live"
Equal other.FileName, "x.mp3", "a file name with a source address"
Equal other.FileSize, CDbl(0), "an address has no size"
Equal other.DestinationPath, "http://host/live", "the destination of an address is the address"
other.Urltype = 0
Equal other.DestinationPath, "C:\Norvo Media\Neither\x.mp3", "neither artist nor album"
other.AlbumName = "Album"
Equal other.DestinationPath, "C:\Norvo Media\Album\Album\x.mp3", "an album alone"
other.ArtistName = "Artist"
Equal other.DestinationPath, "C:\Norvo Media\Both\Artist\Album\x.mp3", "artist and album"
other.AlbumName = ""
Equal other.DestinationPath, "C:\Norvo Media\Artist\Artist\x.mp3", "an artist alone"

Set tagged = Made("Entry")
tagged.SourceURL = "c:\class\TAGGED.mp3"
Equal tagged.FileName, "Tagged.mp3", "the file's name as it is on disk"
Equal tagged.FileSize, CDbl(228), "the file's size"
tagged.ArtistName = "A longer artist than the tag's"
Equal tagged.GetID3TagInfo, True, "the file has a tag"
Equal tagged.ArtistName, "A longer artist than the tag's", "the longer name stays"
Equal tagged.AlbumName, "Some Album", "the album of the tag"
Equal tagged.SongName, "Song One", "the song name of the tag"
Equal tagged.Genre, "Rock", "the genre of the tag"
Equal tagged.Duration, "", "such a tag has no duration"
tagged.SourceURL = "C:\Class\Plain.mp3"
Equal tagged.FileSize, CDbl(200), "another file's size"
Equal tagged.GetID3TagInfo, False, "another file has no tag"

' Names and uses.
Equal tagged.aLBUMnAME, "Some Album", "a name in another case"
tagged.GENRE = "Jazz"
Equal tagged.genre, "Jazz", "a let in another case"
tagged.FileSize = 3
Refused "a file size is read only"
tagged.DestinationPath = "x"
Refused "a method takes no value"
other = tagged.Nowhere
Refused "a member that is not there"
tagged.Entry_AlbumName = "x"
Refused "a name of another class"
other = tagged.DestinationPath(1)
Raised 450, "a method with an argument too many"
other = tagged.AlbumName("x")
Raised 450, "a property with an argument too many"
tagged.AlbumName("x") = "y"
Raised 450, "a let with an argument too many"
Done
