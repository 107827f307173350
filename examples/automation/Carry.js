// Carries the playlists of one PC to another as neutral files, by way of a folder that both can reach.
// The songs are not carried; MediaList.txt, which comes along, names them and their new places.
//
//   cscript //nologo Carry.js out E:\Lists
//       on the old PC: collects the lists, and copies them there
//   cscript //nologo Carry.js in E:\Lists
//       on the new PC: copies them, and writes them for its players

var COLLECT = 0;
var RESTORE = 1;
var MY_DOCUMENTS = 5;
var GROUP_ROOT = "SOFTWARE\\Norvo\\Migration\\KVS\\KVMediaPlayLists\\SubGroupRootName";

var shell = new ActiveXObject("WScript.Shell");
var files = new ActiveXObject("Scripting.FileSystemObject");
var manager = new ActiveXObject("NorvoPlayList.helperMan");

// The folder for lists and songs.
function rootFolder() {
  try {
    return shell.RegRead("HKCU\\" + GROUP_ROOT);
  } catch (error) {
    return shell.RegRead("HKLM\\" + GROUP_ROOT);
  }
}

// The neutral files of a folder.
function copyLists(source, target) {
  if (!files.FolderExists(source)) throw new Error(source + " is no folder");
  if (!files.FolderExists(target)) files.CreateFolder(target);
  files.CopyFile(files.BuildPath(source, "*.ini"), target + "\\", true);
  WScript.Echo("The neutral files are in " + target);
}

function carryOut(folder) {
  if (!manager.GetAllPlaylists()) throw new Error("The drives cannot be scanned");
  if (!manager.GenericQueue(COLLECT)) throw new Error("No playlist with entries was found");
  var area = files.BuildPath(rootFolder(), "KVs");
  copyLists(area, folder);
  files.CopyFile(files.BuildPath(area, "MediaList.txt"), folder + "\\", true);
}

function carryIn(folder) {
  var documents = new ActiveXObject("Shell.Application").NameSpace(MY_DOCUMENTS).Self.Path;
  copyLists(folder, files.BuildPath(documents, "Norvo PlayLists"));
  if (!manager.GenericQueue(RESTORE)) throw new Error("No playlist was restored");
  WScript.Echo("The players' lists are in " + files.BuildPath(rootFolder(), "PlayLists"));
}

var words = WScript.Arguments;
var direction = words.Count() === 2 ? words(0).toLowerCase() : "";
try {
  if (direction === "out") carryOut(words(1));
  else if (direction === "in") carryIn(words(1));
  else {
    WScript.Echo("cscript //nologo Carry.js out|in FOLDER");
    WScript.Quit(2);
  }
} catch (error) {
  WScript.Echo(error.message + ".");
  WScript.Quit(1);
}
