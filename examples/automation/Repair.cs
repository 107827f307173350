// Repairs a playlist: tells which of its references lead to nothing, and writes it without them, as a
// neutral file and for all four players. The old list stays as it is, and so do the songs.
//
//   csc Repair.cs && Repair C:\Music\Mix.m3u
using System;
using System.IO;
using System.Linq;
using System.Text;
using System.Text.RegularExpressions;
using Microsoft.Win32;

static class Repair {
    const int StaysWhereItIs = 6;
    const string LeftOut = "^NVERR_(?:FILE_NOT_FOUND|INVALID_ARG).*?"
        + "(?:File Not Found|Invalid Argument or Bad Data): (.*)$";
    const string Switch = @"Software\Norvo\Debug";
    const string Product = @"SOFTWARE\Norvo\Migration";
    const int ToFile = 3;

    static readonly RegistryKey[] Hives = {Registry.CurrentUser, Registry.LocalMachine};
    static string logFile;
    static int seen;

    static dynamic Create(string name) {
        return Activator.CreateInstance(Type.GetTypeFromProgID("NorvoPlayList." + name, true));
    }

    // The playlist's type by its first lines.
    static int TypeOf(dynamic manager, string path) {
        return path.EndsWith(".pls", StringComparison.OrdinalIgnoreCase)
            ? manager.ParsePLSHeader(path) : manager.ParseM3UHeader(path);
    }

    // Nothing when there is none.
    static object Value(RegistryKey hive, string path, string name) {
        using (RegistryKey key = hive.OpenSubKey(path)) return key == null ? null : key.GetValue(name);
    }

    // Of the user, or else of the PC.
    static object Setting(string path, string name) {
        return Hives.Select(hive => Value(hive, path, name)).FirstOrDefault(value => value != null);
    }

    // The log is turned on for the current user; the library asks once, before its first line.
    static void SwitchLog(object mode) {
        using (RegistryKey key = Registry.CurrentUser.CreateSubKey(Switch)) {
            key.SetValue("VBDebugOut", mode, RegistryValueKind.DWord);
        }
    }

    // The log's file: in the product's folder, else in that of the DLL.
    static string FindLog() {
        object folder = Setting(Product, "ProductFolder");
        if (folder == null) {
            object identifier = Value(Registry.ClassesRoot, @"NorvoPlayList.PlayList\CLSID", "");
            object dll = Value(Registry.ClassesRoot, @"CLSID\" + identifier + @"\InprocServer32", "");
            folder = Path.GetDirectoryName((string)dll);
        }
        return Path.Combine((string)folder, "VBLog.txt");
    }

    // The lines of the log since the last look at it. It is text of the system's 8-bit page.
    static string[] NewLines() {
        if (!File.Exists(logFile)) return new string[0];
        string[] lines = File.ReadAllLines(logFile, Encoding.Default);
        string[] fresh = lines.Skip(seen).ToArray();
        seen = lines.Length;
        return fresh;
    }

    // An entry that is asked for its size before it has an address writes a line to the log.
    static void CheckLog() {
        NewLines();
        GC.KeepAlive(Create("Entry").FileSize);
        if (NewLines().Length == 0) throw new IOException("Nothing can be written to " + logFile);
    }

    // An empty list of the new name. An entry is taken only by a collection of its own type, so it has
    // the type of the old one.
    static dynamic EmptyListLike(dynamic old, string name) {
        dynamic list = Create("PlayList");
        list.PlayListType = old.PlayListType;
        list.OriginalFileName = name;
        list.PlayListName = name;
        list.ASX_Version = old.ASX_Version;
        list.PlayListEntries.CollectionType = old.PlayListEntries.CollectionType;
        return list;
    }

    // Else the players' lists would name the places to which a move brings the songs.
    static void LeaveSong(dynamic song) {
        if (song.Entry_URLType < StaysWhereItIs) song.Entry_URLType = StaysWhereItIs;
    }

    // WriteRawPlayList answers False whatever comes of it; the files tell. Each gets the name that is
    // free then, which can be asked for before.
    static void WriteForAllPlayers(dynamic list, string name) {
        int[] kinds = {1, 3, 6, 5};
        string[] paths = kinds.Select(kind => (string)list.GetNewPlayListPath(name, kind)).ToArray();
        list.WriteRawPlayList();
        foreach (string path in paths) {
            if (!File.Exists(path)) throw new IOException(path + " cannot be written");
            Console.WriteLine(path);
        }
    }

    // Reads the list and tells what was left out, and how much.
    static dynamic ReadList(string source) {
        dynamic manager = Create("helperMan"), list = Create("PlayList");
        CheckLog();
        list.PlayListType = TypeOf(manager, source);
        if (list.PlayListType == 0) throw new IOException(source + " is no playlist of a known type");
        NewLines();
        if (!list.ReadPlayList(source)) throw new IOException(source + " cannot be read");
        int missing = 0;
        foreach (Match found in NewLines().Select(line => Regex.Match(line, LeftOut))) {
            if (!found.Success) continue;
            Console.WriteLine("left out: " + found.Groups[1].Value);
            ++missing;
        }
        Console.WriteLine(missing + " left out, " + list.PlayListEntries.TotalSongs + " kept");
        return list;
    }

    // The neutral file first: it is to know the songs as they were found.
    static void Write(dynamic old, string name) {
        dynamic songs = old.PlayListEntries, list = EmptyListLike(old, name);
        list.ASX_Title = old.ASX_Title;
        for (int i = 1; i <= songs.TotalSongs; ++i) list.PlayListEntries.Add(songs.Item(i));
        if (!list.WriteGeneric(name)) throw new IOException("The neutral file cannot be written");
        for (int i = 1; i <= songs.TotalSongs; ++i) LeaveSong(songs.Item(i));
        WriteForAllPlayers(list, name);
    }

    static int Run(string source) {
        logFile = FindLog();
        dynamic old = ReadList(source);
        if (old.PlayListEntries.TotalSongs == 0) return 1;
        // The library cuts a new name at its first point.
        string name = Path.GetFileNameWithoutExtension(source).Replace('.', ' ');
        Write(old, name + " repaired.m3u");
        return 0;
    }

    [STAThread]
    static int Main(string[] words) {
        if (words.Length != 1) {
            Console.WriteLine("Repair PLAYLIST");
            return 2;
        }
        object before = Setting(Switch, "VBDebugOut") ?? 0;
        try {
            SwitchLog(ToFile);
            return Run(words[0]);
        } catch (IOException error) {
            Console.WriteLine(error.Message + ".");
            return 2;
        } finally {
            SwitchLog(before);
        }
    }
}
