Plan 97
CheckFormatEntry "AsxEntry"

Dim entry, item
Set entry = Made("AsxEntry")

Equal entry.ASX_Author, "", "author at first"
Equal entry.ASX_Artist, "", "artist of the list at first"
Equal entry.ASX_Album, "", "album of the list at first"
Equal entry.Copyright, "", "copyright at first"
Equal entry.HREF, "", "reference at first"
Equal entry.ASX_SongName, "", "song name of the list at first"
Equal entry.ASX_Title, "", "title of the list at first"
Equal entry.BitRate, CLng(0), "bit rate at first"
Equal entry.DigitallySecure, Empty, "protection at first"
Equal entry.MediaAttribute, CInt(0), "media attribute at first"
Equal entry.MediaType, "", "media type at first"
Equal entry.PlaylistAttribute, "", "playlist attribute at first"
Equal entry.PlayCount, CLng(0), "play count at first"
Equal entry.Abstract, "", "abstract at first"

entry.ASX_Author = " " & ManyScripts()
Equal entry.ASX_Author, " " & ManyScripts(), "an author is kept as it is"
entry.Copyright = 1999
Equal entry.Copyright, "1999", "a copyright is a text"
entry.HREF = "..\x.mp3"
Equal entry.href, "..\x.mp3", "a reference is kept as it is"
entry.ASX_SongName = "Song of the list"
Equal entry.ASX_SongName, "Song of the list", "a song name of the list"
Equal entry.Entry_SongName, "", "it is not the entry's own"
entry.ASX_Title = "Title"
Equal entry.ASX_Title, "Title", "a title of the list"
Equal entry.Entry_SongTitle, "", "it is not the entry's own either"
entry.Abstract = True
Equal entry.Abstract, "True", "an abstract is a text"
entry.Abstract = Null
Raised 94, "Null is no abstract"

' The longer of two names.
entry.ASX_Artist = "Artist"
Equal entry.Entry_ArtistName, "Artist", "an artist of the list is the entry's own too"
entry.Entry_ArtistName = "Other"
Equal entry.ASX_Artist, "Artist", "a shorter one of the entry does not win"
entry.Entry_ArtistName = "Others"
Equal entry.ASX_Artist, "Others", "one of the same length does"
entry.ASX_Album = "Album"
Equal entry.Entry_AlbumName, "Album", "an album of the list is the entry's own too"
entry.Entry_AlbumName = "A"
Equal entry.ASX_Album, "Album", "a shorter one of the entry does not win"
entry.Entry_AlbumName = "A longer album"
Equal entry.ASX_Album, "A longer album", "a longer one does"

' Values of any type, each kept as its own.
entry.BitRate = "128000"
Equal entry.BitRate, CLng(128000), "a bit rate is a 32-bit number"
entry.BitRate = "fast"
Raised 13, "a word is no bit rate"
entry.BitRate = 3E9
Raised 6, "a bit rate of more than 32 bits"
entry.BitRate = Null
Raised 94, "Null is no bit rate"
entry.MediaAttribute = "12"
Equal entry.MediaAttribute, CInt(12), "a media attribute is a 16-bit number"
entry.MediaAttribute = 40000
Raised 6, "a media attribute of more than 16 bits"
entry.PlayCount = 7.5
Equal entry.PlayCount, CLng(8), "a play count is a 32-bit number"
entry.MediaType = 5
Equal entry.MediaType, "5", "a media type is a text"
entry.PlaylistAttribute = False
Equal entry.PlaylistAttribute, "False", "a playlist attribute is a text"
entry.PlaylistAttribute = entry
Raised 13, "an object is no playlist attribute"
entry.DigitallySecure = True
Equal entry.DigitallySecure, True, "protection keeps a boolean"
entry.DigitallySecure = "no"
Equal entry.DigitallySecure, "no", "protection keeps a text"
entry.DigitallySecure = CDbl(2)
Equal entry.DigitallySecure, CDbl(2), "protection keeps a number"
entry.DigitallySecure = DateSerial(2003, 5, 14)
Equal entry.DigitallySecure, DateSerial(2003, 5, 14), "protection keeps a date"
entry.DigitallySecure = Null
Equal entry.DigitallySecure, Null, "protection keeps Null"
entry.DigitallySecure = Array("a", "b")
item = entry.DigitallySecure
Equal UBound(item), CLng(1), "protection keeps texts"
Equal item(1), "b", "the last of the texts"

item = entry.BitRate(1)
Raised 450, "a property with an argument too many"
entry.Nowhere = 1
Refused "a member that is not there"
entry.ASX_Version = "3.0"
Refused "a name of another class"
Done
