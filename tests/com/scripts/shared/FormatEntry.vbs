' What the three format entries share; 48 checks.
Sub CheckFormatEntry(className)
  On Error Resume Next
  CheckFirstValues Made(className)
  CheckValues Made(className)
  CheckNamesAndTitles Made(className), Made(className)
  CheckFile Made(className)
  CheckUses Made(className)
End Sub

Sub CheckFirstValues(entry)
  On Error Resume Next
  Equal entry.Entry_AlbumName, "", "album at first"
  Equal entry.Entry_ArtistName, "", "artist at first"
  Equal entry.Entry_CreationDate, "", "creation date at first"
  Equal entry.Entry_Duration, "", "duration at first"
  Equal entry.Entry_EntryType, CLng(0), "entry type at first"
  Equal entry.Entry_FileName, "", "file name at first"
  Equal entry.Entry_FileSize, CDbl(0), "file size at first"
  Equal entry.Entry_Genre, "", "genre at first"
  Equal entry.Entry_GetID3TagInfo, False, "no tag without a source address"
  Equal entry.Entry_DestinationPath, "", "no destination without a file name"
  Equal entry.Entry_PlayListName, "", "playlist name at first"
  Equal entry.Entry_SongTitle, "", "song title at first"
  Equal entry.Entry_TrackNumber, "", "track number at first"
  Equal entry.Entry_SongName, "", "song name at first"
  Equal entry.Entry_SourceURL, "", "source address at first"
  Equal entry.Entry_URLType, CLng(0), "address type at first"
  Equal entry.HasExtendedInfo, False, "extended information at first"
End Sub

Sub CheckValues(entry)
  On Error Resume Next
  entry.Entry_AlbumName = " " & ManyScripts() & Chr(0) & "hidden"
  Equal entry.Entry_AlbumName, ManyScripts(), "an album is cut at the NUL and trimmed"
  entry.Entry_CreationDate = 1999
  Equal entry.Entry_CreationDate, "1999", "a creation date is a text"
  entry.Entry_Duration = 215
  Equal entry.Entry_Duration, "215", "a duration is a text"
  entry.Entry_EntryType = "3"
  Equal entry.Entry_EntryType, CLng(3), "an entry type out of a text"
  entry.Entry_EntryType = "three"
  Raised 13, "a word is no entry type"
  entry.Entry_Genre = False
  Equal entry.Entry_Genre, "False", "a boolean as a text"
  entry.Entry_TrackNumber = Null
  Raised 94, "Null is no track number"
  entry.Entry_TrackNumber = 2.5
  Equal entry.Entry_TrackNumber, "2.5", "a track number is a text"
  entry.Entry_URLType = 1E10
  Raised 6, "an address type of more than 32 bits"
  entry.HasExtendedInfo = "TRUE"
  Equal entry.HasExtendedInfo, True, "a word as a boolean"
  entry.HasExtendedInfo = "0"
  Equal entry.HasExtendedInfo, False, "a text of a number as a boolean"
  entry.HasExtendedInfo = 2
  Equal entry.HasExtendedInfo, True, "a number as a boolean"
  entry.HasExtendedInfo = "yes"
  Raised 13, "another word is no boolean"
End Sub

Sub CheckNamesAndTitles(entry, other)
  On Error Resume Next
  entry.Entry_ArtistName = "Artist"
  entry.Entry_SongName = "Song"
  Equal entry.Entry_SongTitle, "", "the first reading composes the title and is empty"
  Equal entry.Entry_SongTitle, "Artist - Song", "the second one hands it out"
  other.Entry_SongTitle = "First"
  other.Entry_SongTitle = "Second"
  Equal other.Entry_SongTitle, "First", "the first title stays"
  entry.Entry_PlayListName = "Mix"
  Equal entry.Entry_PlayListName, "", "the playlist's name is never handed out"
  entry.Entry_FileName = "x.mp3"
  Equal entry.Entry_FileName, "", "no file name without a source address"
  Equal entry.Entry_DestinationPath, "C:\Norvo Media\Artist\Artist\x.mp3", "a destination"
End Sub

Sub CheckFile(entry)
  On Error Resume Next
  entry.Entry_SourceURL = "C:\Class\Tagged.mp3"
  Equal entry.Entry_FileName, "Tagged.mp3", "the file's name"
  Equal entry.Entry_FileSize, CDbl(228), "the file's size"
  Equal entry.Entry_GetID3TagInfo, True, "the file has a tag"
  Equal entry.Entry_SongName, "Song One", "the song name of the tag"
End Sub

Sub CheckUses(entry)
  On Error Resume Next
  Dim value
  entry.ENTRY_genre = "Jazz"
  Equal entry.entry_GENRE, "Jazz", "a name in another case"
  entry.Entry_NativeFormat = "5"
  Quiet "a native format can be set"
  value = entry.Entry_NativeFormat
  Refused "a native format is write only"
  entry.Entry_FileSize = 3
  Refused "a file size is read only"
  value = entry.AlbumName
  Refused "a plain name is no member"
  value = entry.Entry_DestinationPath("x")
  Raised 450, "a method with an argument too many"
  entry.Entry_NativeFormat = "five"
  Raised 13, "a word is no native format"
  value = entry.Entry_SongName(1)
  Raised 450, "a property with an argument too many"
End Sub
