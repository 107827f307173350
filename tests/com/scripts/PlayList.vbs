Plan 91

Const LISTS = "C:\Norvo Media\PlayLists\"
Const AREA = "C:\Norvo Media\KVs\"
Dim files, playlist, other, value, path, kind, i
Set files = CreateObject("Scripting.FileSystemObject")
Set playlist = Made("PlayList")

Equal playlist.CreationTime, "", "creation time at first"
Equal playlist.PlayListName, "", "name at first"
Equal playlist.PlayListType, CLng(0), "type at first"
Equal playlist.OriginalFileName, "", "original file name at first"
Equal playlist.TotalSongs, CInt(0), "number of songs at first"
Equal playlist.ASX_AllowShuffle, "", "shuffling at first"
Equal playlist.ASX_Artist, "", "artist at first"
Equal playlist.ASX_Album, "", "album at first"
Equal playlist.ASX_Author, "", "author at first"
Equal playlist.ASX_Title, "", "title at first"
Equal playlist.ASX_Version, "", "version at first"
Equal playlist.ASX_PlayListAttribute, "", "attribute at first"
Same playlist.PlayListEntries, playlist.PlayListEntries, "the same entries every time"
Equal playlist.PlayListEntries.Count, CInt(0), "no entries at first"

playlist.CreationTime = 5
Equal playlist.CreationTime, "5", "a creation time is a text"
playlist.CreationTime = Null
Raised 94, "Null is no creation time"
playlist.PlayListName = "Mix"
Equal playlist.PlayListName, "", "an unknown type gives no name"
playlist.PlayListType = "3"
Equal playlist.PlayListType, CLng(3), "a type out of a text"
playlist.PlayListName = "Mix.M3U.bak"
Equal playlist.PlayListName, "Mix", "a name is cut at the type's extension"
playlist.PlayListName = "Other.pls"
Equal playlist.PlayListName, "Mix", "a name without it is not taken"
playlist.PlayListType = 1
playlist.PlayListName = "Mix.asx"
Equal playlist.PlayListName, "Mix.asx", "type 1 keeps its extension"
playlist.PlayListType = "m3u"
Raised 13, "a word is no type"
playlist.OriginalFileName = ""
playlist.OriginalFileName = "First.m3u"
playlist.OriginalFileName = "Second.m3u"
Equal playlist.OriginalFileName, "First.m3u", "the first original file name stays"
playlist.TotalSongs = "ninety"
Equal playlist.TotalSongs, CInt(0), "the number of songs is that of the entries"
playlist.ASX_AllowShuffle = True
Equal playlist.ASX_AllowShuffle, "True", "shuffling is a text"
playlist.ASX_Artist = ManyScripts()
Equal playlist.ASX_Artist, ManyScripts(), "an artist in many scripts"
playlist.ASX_Album = 1999
Equal playlist.asx_ALBUM, "1999", "an album by a name in another case"
playlist.ASX_Author = " A "
Equal playlist.ASX_Author, " A ", "an author is kept as it is"
playlist.ASX_Title = Empty
Equal playlist.ASX_Title, "", "an empty title"
playlist.ASX_Version = 3.5
Equal playlist.ASX_Version, "3.5", "a version is a text"
playlist.ASX_PlayListAttribute = playlist
Raised 13, "an object is no attribute"

' Reading.
Set playlist = Made("PlayList")
path = "C:\Class\missing.m3u"
Equal playlist.ReadPlayList(path), False, "a missing file is not read"
Equal playlist.OriginalFileName, "", "a missing file gives no name"
path = "c:\class\mix.M3U"
playlist.PlayListType = 3
Equal playlist.ReadPlayList(path), True, "a playlist is read"
Equal path, "c:\class\mix.M3U", "the path is left alone"
Equal playlist.OriginalFileName, "Mix.m3u", "the file's name as it is on disk"
Equal playlist.PlayListName, "Mix", "the name of the playlist"
Equal playlist.TotalSongs, CInt(2), "the number of songs"
Equal InStr(playlist.CreationTime, "/") > 0, True, "the creation time of the file"
Equal playlist.PlayListEntries.CollectionType, CLng(3), "the type of the entries"
Equal playlist.PlayListEntries.Item(1).Entry_ArtistName, "Some Artist", "the first song's artist"
Equal playlist.PlayListEntries.Item(1).Entry_Duration, "215", "the first song's duration"
Equal playlist.PlayListEntries.Item(2).Entry_SongName, "Plain", "the second song's name"
Equal playlist.ReadPlayList(path), True, "a playlist is read once more"
Equal playlist.TotalSongs, CInt(4), "its songs are added to those that are there"
Set other = Made("PlayList")
Equal other.ReadPlayList(path), True, "an unknown type is no failure"
Equal other.TotalSongs, CInt(0), "an unknown type reads nothing"

' Paths of native files.
kind = "3"
Equal playlist.GetNewPlayListPath("My (new) mix.xyz", kind), LISTS & "WinAmp\My new mix.m3u", _
      "a path of type 3"
Equal kind, "3", "the type's variable is left alone"
Equal playlist.GetNewPlayListPath("a.b", 1), LISTS & "Windows Media Player\a.asx", "type 1"
Equal playlist.GetNewPlayListPath("a.b", 2), LISTS & "Windows Media Player\a.m3u", "type 2"
Equal playlist.GetNewPlayListPath("a.b", 4), LISTS & "WinAmp\a.pls", "type 4"
Equal playlist.GetNewPlayListPath("a.b", 5), LISTS & "Sonique\a.pls", "type 5"
Equal playlist.GetNewPlayListPath("a.b", 6), LISTS & "MusicMatch Jukebox\a.m3u", "type 6"
Equal playlist.GetNewPlayListPath("a.b", 7), LISTS & "\a", "an unknown type"
Equal files.FolderExists(LISTS & "Sonique"), True, "the player's folder was made"
value = playlist.GetNewPlayListPath("no point", 3)
Raised 5, "a name without a point"
value = playlist.GetNewPlayListPath("a.b", "three")
Raised 13, "a word is no type"
value = playlist.GetNewPlayListPath("a.b")
Raised 450, "a type is left out"

' Writing and reading back.
Equal other.WriteGeneric("x.m3u"), False, "a playlist without entries is not written"
path = "whatever.m3u"
Equal playlist.WriteGeneric(path), True, "a generic file is written"
Equal path, "whatever.m3u", "the file name is left alone"
Equal files.FileExists(AREA & "Mix.ini"), True, "the name of the playlist is the file's"
Set other = Made("PlayList")
Equal other.ReadGeneric(AREA & "Mix.ini"), False, "reading it back gives false"
Equal other.PlayListName, "Mix", "the name was read back"
Equal other.PlayListType, CLng(3), "the type was read back"
Equal other.OriginalFileName, "Mix.m3u", "the original file name was read back"
Equal other.TotalSongs, CInt(4), "all entries were read back"
Equal other.PlayListEntries.Item(1).Entry_SongName, "Song One", "a song's name was read back"
Equal other.PlayListEntries.Item(1).HasExtendedInfo, True, "its information was read back"
value = other.ReadGeneric("C:\Class\missing.ini")
Equal other.TotalSongs, CInt(4), "a missing file changes nothing"
Equal other.WriteRawPlayList, False, "writing native playlists gives false"
Equal files.FileExists(LISTS & "Windows Media Player\Mix.asx"), True, "the first native playlist"
Equal files.FileExists(LISTS & "WinAmp\Mix.m3u"), True, "the second native playlist"
Equal files.FileExists(LISTS & "MusicMatch Jukebox\Mix.m3u"), True, "the third native playlist"
Equal files.FileExists(LISTS & "Sonique\Mix.pls"), True, "the fourth native playlist"
Equal playlist.GetNewPlayListPath("Mix.m3u", 3), LISTS & "WinAmp\Mix1.m3u", _
      "a name that is taken gets a number"
Equal Made("PlayList").WriteRawPlayList, False, "an unknown type writes nothing"

' The script's own objects among the entries.
Class OwnSong
  Public Property Get Entry_EntryType
    Entry_EntryType = 3
  End Property
  Public Property Get Entry_ArtistName
    Entry_ArtistName = "Own artist"
  End Property
  Public Property Get Entry_SongName
    Entry_SongName = "Own song"
  End Property
  Public Property Get Entry_Duration
    Entry_Duration = "00:00:07.000"
  End Property
  Public Property Get HasExtendedInfo
    HasExtendedInfo = 1
  End Property
  Public Function Entry_DestinationPath
    Entry_DestinationPath = "C:\Own\" & Entry_SongName & ".mp3"
  End Function
End Class
Set other = Made("PlayList")
other.PlayListType = 3
other.OriginalFileName = "Own.m3u"
other.PlayListEntries.CollectionType = 3
other.PlayListEntries.Add New OwnSong
Equal other.WriteRawPlayList, False, "native playlists of the script's own song"
With files.OpenTextFile(LISTS & "WinAmp\Own.m3u")
  Equal .ReadLine, "#EXTM3U", "the first line"
  Equal .ReadLine, "#EXTINF:7,Own artist - Own song", "the line of information"
  Equal .ReadLine, "C:\Own\Own song.mp3", "the line of the song"
  Equal .AtEndOfStream, True, "and no more"
  .Close
End With

' An object that takes the entries away while it is asked.
Class VanishingSong
  Public Entry_EntryType
  Public Entry_AlbumName
  Public Entry_ArtistName
  Public Entry_CreationDate
  Public Entry_Duration
  Public Entry_Genre
  Public Entry_SongName
  Public Entry_SongTitle
  Public Entry_TrackNumber
  Public Name
  Public HasExtendedInfo
  Public Function Entry_DestinationPath
    other.PlayListEntries.Remove ""
  End Function
End Class
Set other = Made("PlayList")
other.PlayListType = 3
other.OriginalFileName = "Vanishing.m3u"
other.PlayListEntries.CollectionType = 3
For i = 1 To 2
  Set value = New VanishingSong
  value.Entry_EntryType = 3
  other.PlayListEntries.Add value
Next
Equal other.WriteRawPlayList, False, "entries may vanish while they are written"
Equal other.TotalSongs, CInt(0), "each syntax asked one of them"

Set playlist.PlayListEntries = other.PlayListEntries
Refused "the entries are read only"
value = playlist.PlayListEntries(1)
Raised 450, "a property with an argument too many"
value = playlist.Name
Refused "a playlist has no name"
playlist.ReadPlayList
Raised 450, "a path is left out"
value = playlist.ReadPlayList(Null)
Raised 94, "Null is no path"
value = playlist.WriteRawPlayList(1)
Raised 450, "a method with an argument too many"
Done
