// Writes a playlist anew, in the order of its artists and titles, under a new name and for all four
// players. The songs stay where they are, and so does the old list.
//
//   cscript //nologo WriteAnew.js C:\Music\Mix.m3u "Mix by artist"

var STAYS_WHERE_IT_IS = 6;

if (WScript.Arguments.Count() !== 2) {
  WScript.Echo("cscript //nologo WriteAnew.js PLAYLIST NEW-NAME");
  WScript.Quit(2);
}
var source = WScript.Arguments(0);
var name = WScript.Arguments(1) + ".m3u";
var manager = new ActiveXObject("NorvoPlayList.helperMan");
var files = new ActiveXObject("Scripting.FileSystemObject");

// The playlist's type by its first lines.
function typeOf(path) {
  return /\.pls$/i.test(path) ? manager.ParsePLSHeader(path) : manager.ParseM3UHeader(path);
}

function sortKey(song) {
  return [song.Entry_ArtistName, song.Entry_SongName, song.Entry_SourceURL].join("\t").toLowerCase();
}

// The entries as an array, by artist and title; those without come first, by where they are.
function sortedSongs(entries) {
  var songs = [];
  for (var i = 1; i <= entries.TotalSongs; ++i) songs.push(entries.Item(i));
  return songs.sort(function (one, other) {
    return sortKey(one) < sortKey(other) ? -1 : sortKey(one) > sortKey(other) ? 1 : 0;
  });
}

// Else the players' lists would name the places to which a move brings the songs.
function leaveSong(song) {
  if (song.Entry_URLType < STAYS_WHERE_IT_IS) song.Entry_URLType = STAYS_WHERE_IT_IS;
}

// WriteRawPlayList answers false whatever comes of it; the files tell. Each gets the name that is free
// then, which can be asked for before.
function writeForAllPlayers(list) {
  var kinds = [1, 3, 6, 5];
  var paths = [];
  for (var i = 0; i < kinds.length; ++i) paths.push(list.GetNewPlayListPath(name, kinds[i]));
  list.WriteRawPlayList();
  for (i = 0; i < paths.length; ++i) {
    if (!files.FileExists(paths[i])) throw new Error(paths[i] + " cannot be written");
    WScript.Echo(paths[i]);
  }
}

// An empty list of the new name. An entry is taken only by a collection of its own type, so it has the
// type of the old one.
function emptyListLike(old) {
  var list = new ActiveXObject("NorvoPlayList.PlayList");
  list.PlayListType = old.PlayListType;
  list.OriginalFileName = name;
  list.PlayListName = name;
  list.ASX_Version = old.ASX_Version;
  list.PlayListEntries.CollectionType = old.PlayListEntries.CollectionType;
  return list;
}

try {
  var old = new ActiveXObject("NorvoPlayList.PlayList");
  old.PlayListType = typeOf(source);
  if (!old.ReadPlayList(source)) throw new Error(source + " cannot be read");
  var list = emptyListLike(old);
  var songs = sortedSongs(old.PlayListEntries);
  for (var i = 0; i < songs.length; ++i) {
    leaveSong(songs[i]);
    list.PlayListEntries.Add(songs[i]);
  }
  writeForAllPlayers(list);
  WScript.Echo(list.PlayListEntries.TotalSongs + " songs");
} catch (error) {
  WScript.Echo(error.message + ".");
  WScript.Quit(1);
}
