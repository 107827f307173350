plan(9);

var playlist = made("PlayList");
playlist.PlayListType = 3;
equal(playlist.ReadPlayList("C:\\Class\\Mix.m3u"), true, "a playlist is read");
equal(playlist.TotalSongs, 2, "the number of songs");
equal(playlist.PlayListEntries, playlist.PlayListEntries, "the same entries every time");
var titles = "";
for (var i = 1; i <= playlist.TotalSongs; i += 1) {
  titles += playlist.PlayListEntries.Item(i).Entry_SongName + ";";
}
equal(titles, "Song One;Plain;", "a loop over the entries");

// A literal is written like any other entry.
var own = {Entry_EntryType: 3, Entry_Duration: 215, HasExtendedInfo: false,
           Entry_DestinationPath: "C:\\Own\\literal.mp3"};
var other = made("PlayList");
other.PlayListType = 3;
other.OriginalFileName = "Literal.m3u";
other.PlayListEntries.CollectionType = 3;
other.PlayListEntries.Add(own);
equal(other.WriteRawPlayList(), false, "native playlists of a literal");
var files = new ActiveXObject("Scripting.FileSystemObject");
var file = files.OpenTextFile("C:\\Norvo Media\\PlayLists\\WinAmp\\Literal.m3u");
equal(file.ReadLine(), "#EXTM3U", "the first line");
equal(file.ReadLine(), "C:\\Own\\literal.mp3", "the line of the song");
equal(file.AtEndOfStream, true, "and no more");
file.Close();
raised(94, INVALID_NULL, "null is no path", function () { playlist.ReadPlayList(null); });
done();
