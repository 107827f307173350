// Tells of each playlist of this PC which of its references lead to nothing. The library drops such
// items when it reads a list, and tells of each in its log, VBLog.txt; so the log is turned on while
// this runs.
//
//   cscript //nologo FindMissing.js

var SWITCH = "Software\\Norvo\\Debug\\VBDebugOut";
var TO_FILE = 3;
var MISSING = /^NVERR_FILE_NOT_FOUND.*?File Not Found: (.*)$/;

var shell = new ActiveXObject("WScript.Shell");
var files = new ActiveXObject("Scripting.FileSystemObject");
var manager;
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

// The references that the reading of a list has called missing.
function missingOf(path) {
  var list = new ActiveXObject("NorvoPlayList.PlayList");
  list.PlayListType = typeOf(path);
  newLines();
  list.ReadPlayList(path);
  var lines = newLines();
  var missing = [];
  for (var i = 0; i < lines.length; ++i) {
    var found = MISSING.exec(lines[i]);
    if (found) missing.push(found[1]);
  }
  return missing;
}

// Gives the number of all that are missing.
function findMissing() {
  manager = new ActiveXObject("NorvoPlayList.helperMan");
  if (!isLogWritten()) throw new Error("Nothing can be written to " + logFile);
  if (!manager.GetAllPlaylists()) throw new Error("The drives cannot be scanned");
  var paths = new VBArray(manager.GetPLSList()).toArray();
  var total = 0;
  for (var i = 0; i < paths.length; ++i) {
    var missing = missingOf(paths[i]);
    if (missing.length > 0) WScript.Echo(paths[i] + "\n  " + missing.join("\n  "));
    total += missing.length;
  }
  return total;
}

var before = registryValue("HKCU\\" + SWITCH) || registryValue("HKLM\\" + SWITCH) || 0;
var code = 0;
try {
  switchLog(TO_FILE);
  var total = findMissing();
  WScript.Echo(total + " missing");
  if (total > 0) code = 1;
} catch (error) {
  WScript.Echo(error.message + ".");
  code = 2;
}
switchLog(before);
WScript.Quit(code);
