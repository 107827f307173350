// Tells of each playlist of this PC which of its references lead to nothing. The library drops such
// items when it reads a list, and tells of each in its log, VBLog.txt; so the log is turned on while
// this runs.
//
//   csc FindMissing.cs && FindMissing
using System;
using System.IO;
using System.Linq;
using System.Text;
using System.Text.RegularExpressions;
using Microsoft.Win32;

static class FindMissing {
    const string Missing = "^NVERR_FILE_NOT_FOUND.*?File Not Found: (.*)$";
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

    // The references that the reading of a list has called missing.
    static string[] MissingOf(dynamic manager, string path) {
        dynamic list = Create("PlayList");
        list.PlayListType = TypeOf(manager, path);
        NewLines();
        list.ReadPlayList(path);
        return NewLines().Select(line => Regex.Match(line, Missing))
            .Where(match => match.Success).Select(match => match.Groups[1].Value).ToArray();
    }

    // Gives the number of all that are missing.
    static int Find() {
        logFile = FindLog();
        dynamic manager = Create("helperMan");
        CheckLog();
        if (!manager.GetAllPlaylists()) throw new IOException("The drives cannot be scanned");
        int total = 0;
        foreach (string path in (Array)manager.GetPLSList()) {
            string[] missing = MissingOf(manager, path);
            if (missing.Length > 0) Console.WriteLine(path);
            foreach (string reference in missing) Console.WriteLine("  " + reference);
            total += missing.Length;
        }
        return total;
    }

    [STAThread]
    static int Main() {
        object before = Setting(Switch, "VBDebugOut") ?? 0;
        try {
            SwitchLog(ToFile);
            int total = Find();
            Console.WriteLine(total + " missing");
            return total > 0 ? 1 : 0;
        } catch (IOException error) {
            Console.WriteLine(error.Message + ".");
            return 2;
        } finally {
            SwitchLog(before);
        }
    }
}
