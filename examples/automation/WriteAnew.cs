// Writes a playlist anew, in the order of its artists and titles, under a new name and for all four
// players. The songs stay where they are, and so does the old list.
//
//   csc WriteAnew.cs && WriteAnew C:\Music\Mix.m3u "Mix by artist"
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;

static class WriteAnew {
    const int StaysWhereItIs = 6;

    static dynamic Create(string name) {
        return Activator.CreateInstance(Type.GetTypeFromProgID("NorvoPlayList." + name, true));
    }

    // The playlist's type by its first lines.
    static int TypeOf(dynamic manager, string path) {
        return path.EndsWith(".pls", StringComparison.OrdinalIgnoreCase)
            ? manager.ParsePLSHeader(path) : manager.ParseM3UHeader(path);
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

    static IEnumerable<dynamic> Songs(dynamic entries) {
        for (int i = 1; i <= entries.TotalSongs; ++i) yield return entries.Item(i);
    }

    static void Write(string source, string name) {
        dynamic old = Create("PlayList");
        old.PlayListType = TypeOf(Create("helperMan"), source);
        if (!old.ReadPlayList(source)) throw new IOException(source + " cannot be read");
        IEnumerable<dynamic> songs = Songs(old.PlayListEntries);
        dynamic list = EmptyListLike(old, name);
        foreach (dynamic song in songs.OrderBy(song => (string)song.Entry_ArtistName)
                                      .ThenBy(song => (string)song.Entry_SongName)
                                      .ThenBy(song => (string)song.Entry_SourceURL)) {
            LeaveSong(song);
            list.PlayListEntries.Add(song);
        }
        WriteForAllPlayers(list, name);
        Console.WriteLine(list.PlayListEntries.TotalSongs + " songs");
    }

    [STAThread]
    static int Main(string[] words) {
        if (words.Length != 2) {
            Console.WriteLine("WriteAnew PLAYLIST NEW-NAME");
            return 2;
        }
        try {
            Write(words[0], words[1] + ".m3u");
            return 0;
        } catch (IOException error) {
            Console.WriteLine(error.Message + ".");
            return 1;
        }
    }
}
