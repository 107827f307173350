// Carries the playlists of one PC to another as neutral files, by way of a folder that both can reach.
// The songs are not carried; MediaList.txt, which comes along, names them and their new places.
//
//   csc Carry.cs
//   Carry out E:\Lists     on the old PC: collects the lists, and copies them there
//   Carry in E:\Lists      on the new PC: copies them, and writes them for its players
using System;
using System.IO;
using Microsoft.Win32;

static class Carry {
    const int Collect = 0, Restore = 1;

    // The folder for lists and songs.
    static string RootFolder() {
        foreach (RegistryKey hive in new[] {Registry.CurrentUser, Registry.LocalMachine}) {
            using (RegistryKey key =
                       hive.OpenSubKey(@"SOFTWARE\Norvo\Migration\KVS\KVMediaPlayLists")) {
                if (key != null) return (string)key.GetValue("SubGroupRootName");
            }
        }
        throw new IOException("The product's settings are missing");
    }

    // The neutral files of a folder, or others.
    static void CopyFiles(string source, string pattern, string target) {
        Directory.CreateDirectory(target);
        foreach (string path in Directory.GetFiles(source, pattern)) {
            File.Copy(path, Path.Combine(target, Path.GetFileName(path)), true);
        }
    }

    static void CarryOut(dynamic manager, string folder) {
        if (!manager.GetAllPlaylists()) throw new IOException("The drives cannot be scanned");
        if (!manager.GenericQueue(Collect)) throw new IOException("No playlist with entries was found");
        string area = Path.Combine(RootFolder(), "KVs");
        CopyFiles(area, "*.ini", folder);
        CopyFiles(area, "MediaList.txt", folder);
        Console.WriteLine("The neutral files are in " + folder);
    }

    static void CarryIn(dynamic manager, string folder) {
        string documents = Path.Combine(
            Environment.GetFolderPath(Environment.SpecialFolder.MyDocuments), "Norvo PlayLists");
        CopyFiles(folder, "*.ini", documents);
        Console.WriteLine("The neutral files are in " + documents);
        if (!manager.GenericQueue(Restore)) throw new IOException("No playlist was restored");
        Console.WriteLine("The players' lists are in " + Path.Combine(RootFolder(), "PlayLists"));
    }

    [STAThread]
    static int Main(string[] words) {
        string direction = words.Length == 2 ? words[0] : "";
        if (direction != "out" && direction != "in") {
            Console.WriteLine("Carry out|in FOLDER");
            return 2;
        }
        try {
            dynamic manager =
                Activator.CreateInstance(Type.GetTypeFromProgID("NorvoPlayList.helperMan", true));
            if (direction == "out") CarryOut(manager, words[1]);
            else CarryIn(manager, words[1]);
            return 0;
        } catch (IOException error) {
            Console.WriteLine(error.Message + ".");
            return 1;
        }
    }
}
