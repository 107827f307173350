// Lists every song of every playlist of this PC, with artist and title.
//
//   cscript //nologo ListSongs.js

var manager = new ActiveXObject("NorvoPlayList.helperMan");

// The playlist's type by its first lines.
function typeOf(path) {
  return /\.pls$/i.test(path) ? manager.ParsePLSHeader(path) : manager.ParseM3UHeader(path);
}

// "Artist: title", as far as list and song tell; else where it is.
function described(song) {
  var title = song.Entry_SongName || song.Entry_SourceURL;
  return song.Entry_ArtistName ? song.Entry_ArtistName + ": " + title : title;
}

function listSongs(path) {
  var list = new ActiveXObject("NorvoPlayList.PlayList");
  list.PlayListType = typeOf(path);
  if (!list.ReadPlayList(path)) WScript.Echo("  (not readable to its end)");
  var songs = list.PlayListEntries;
  for (var i = 1; i <= songs.TotalSongs; ++i) WScript.Echo("  " + described(songs.Item(i)));
}

if (!manager.GetAllPlaylists()) {
  WScript.Echo("The drives cannot be scanned: are the product's settings there?");
  WScript.Quit(2);
}
var paths = new VBArray(manager.GetPLSList()).toArray();
for (var i = 0; i < paths.length; ++i) {
  WScript.Echo(paths[i]);
  listSongs(paths[i]);
}
