// Lists every song of every playlist of this PC, with artist and title.
//
//   csc ListSongs.cs && ListSongs
using System;

static class ListSongs {
    static dynamic Create(string name) {
        return Activator.CreateInstance(Type.GetTypeFromProgID("NorvoPlayList." + name, true));
    }

    // The playlist's type by its first lines.
    static int TypeOf(dynamic manager, string path) {
        return path.EndsWith(".pls", StringComparison.OrdinalIgnoreCase)
            ? manager.ParsePLSHeader(path) : manager.ParseM3UHeader(path);
    }

    // "Artist: title", as far as list and song tell; else where it is.
    static string Described(dynamic song) {
        string title = song.Entry_SongName, artist = song.Entry_ArtistName;
        if (title == "") title = song.Entry_SourceURL;
        return artist == "" ? title : artist + ": " + title;
    }

    static void Tell(dynamic manager, string path) {
        dynamic list = Create("PlayList");
        list.PlayListType = TypeOf(manager, path);
        if (!list.ReadPlayList(path)) Console.WriteLine("  (not readable to its end)");
        dynamic songs = list.PlayListEntries;
        for (int i = 1; i <= songs.TotalSongs; ++i) Console.WriteLine("  " + Described(songs.Item(i)));
    }

    [STAThread]
    static int Main() {
        dynamic manager = Create("helperMan");
        if (!manager.GetAllPlaylists()) {
            Console.WriteLine("The drives cannot be scanned: are the product's settings there?");
            return 2;
        }
        foreach (string path in (Array)manager.GetPLSList()) {
            Console.WriteLine(path);
            Tell(manager, path);
        }
        return 0;
    }
}
