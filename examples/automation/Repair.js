// Repairs a playlist: tells which of its references lead to nothing, and writes it without them, as a
// neutral file and for all four players. The old list stays as it is, and so do the songs.
//
//   cscript //nologo Repair.js C:\Music\Mix.m3u

var SWITCH = "Software\\Norvo\\Debug\\VBDebugOut";
var TO_FILE = 3;
var STAYS_WHERE_IT_IS = 6;
var LEFT_OUT =
    /^NVERR_(?:FILE_NOT_FOUND|INVALID_ARG).*?(?:File Not Found|Invalid Argument or Bad Data): (.*)$/;

if (WScript.Arguments.Count() !== 1) {
  WScript.Echo("cscript //nologo Repair.js PLAYLIST");
  WScript.Quit(2);
}
var shell = new ActiveXObject("WScript.Shell");
var files = new ActiveXObject("Scripting.FileSystemObject");
var manager;
var source = WScript.Arguments(0);
// The library cuts a new name at its first point.
var name = files.GetBaseName(source).replace(/\./g, " ") + " repaired.m3u";
var logFile = findLog();
var seen = 0;

// What the registry has; nothing when it has none.
function registryValue(name) {
  try {
    return shell.RegRead(name);
  } catch (error) {
    return null;
  }
}

// The log is turned on for the current user; the library asks once, before its first line.
function switchLog(mode) {
  shell.RegWrite("HKCU\\" + SWITCH, mode, "REG_DWORD");
}

// The log's file: in the product's folder, else in that of the DLL.
function findLog() {
  var product = "SOFTWARE\\Norvo\\Migration\\ProductFolder";
  var folder = registryValue("HKCU\\" + product) || registryValue("HKLM\\" + product);
  if (!folder) {
    var identifier = registryValue("HKCR\\NorvoPlayList.PlayList\\CLSID\\");
    var dll = registryValue("HKCR\\CLSID\\" + identifier + "\\InprocServer32\\");
    folder = files.GetParentFolderName(dll);
  }
  return files.BuildPath(folder, "VBLog.txt");
}

// The lines of the log since the last look at it. It is text of the system's 8-bit page.
function newLines() {
  var text = "";
  if (files.FileExists(logFile)) {
    var file = files.OpenTextFile(logFile);
    if (!file.AtEndOfStream) text = file.ReadAll();
    file.Close();
  }
  var lines = text.substr(seen).split("\r\n");
  seen = text.length;
  return lines;
}

// An entry that is asked for its size before it has an address writes a line to the log.
function isLogWritten() {
  newLines();
  var size = new ActiveXObject("NorvoPlayList.Entry").FileSize;
  return newLines().length > 1;
}

// The playlist's type by its first lines.
function typeOf(path) {
  return /\.pls$/i.test(path) ? manager.ParsePLSHeader(path) : manager.ParseM3UHeader(path);
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

// Reads the list and tells what was left out, and how much.
function readList() {
  var list = new ActiveXObject("NorvoPlayList.PlayList");
  list.PlayListType = typeOf(source);
  if (list.PlayListType === 0) throw new Error(source + " is no playlist of a known type");
  newLines();
  if (!list.ReadPlayList(source)) throw new Error(source + " cannot be read");
  var lines = newLines();
  var missing = 0;
  for (var i = 0; i < lines.length; ++i) {
    var found = LEFT_OUT.exec(lines[i]);
    if (!found) continue;
    WScript.Echo("left out: " + found[1]);
    ++missing;
  }
  WScript.Echo(missing + " left out, " + list.PlayListEntries.TotalSongs + " kept");
  return list;
}

function repair() {
  manager = new ActiveXObject("NorvoPlayList.helperMan");
  if (!isLogWritten()) throw new Error("Nothing can be written to " + logFile);
  var old = readList();
  var songs = old.PlayListEntries;
  if (songs.TotalSongs === 0) return 1;
  var list = emptyListLike(old);
  list.ASX_Title = old.ASX_Title;
  for (var i = 1; i <= songs.TotalSongs; ++i) list.PlayListEntries.Add(songs.Item(i));
  // The neutral file first: it is to know the songs as they were found.
  if (!list.WriteGeneric(name)) throw new Error("The neutral file cannot be written");
  for (i = 1; i <= songs.TotalSongs; ++i) leaveSong(songs.Item(i));
  writeForAllPlayers(list);
  return 0;
}

var before = registryValue("HKCU\\" + SWITCH) || registryValue("HKLM\\" + SWITCH) || 0;
var code = 2;
try {
  switchLog(TO_FILE);
  code = repair();
} catch (error) {
  WScript.Echo(error.message + ".");
}
switchLog(before);
WScript.Quit(code);
