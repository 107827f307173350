"""Names of songs, artists and lists: plain ones, ones in many scripts, and ones that are hard to
hold."""

LATIN = ["Song", "Track 01", "Root Song", "Don't Look Back", "Kraft & Stoff", "Demo #3",
         "100% pure", "50%20off", "a; b", "Pop Hits [2003]", "x=y", "one, two", "Hey!", "{take 2}",
         "v1.2.final", "Mr. Big feat. R.E.M", "..and so on", ".hidden", "a  b", "~tmp", "(live)",
         "+1", "@home", "$$$", "_underscore_", "- dash -", "EXTINF story", "file", "http", "C", "1",
         "1999", "007 - Agent - Theme", "Artist - Title", "Très bien", "Grüße aus Köln", "Straße",
         "Ärzte", "Señor", "Øresund", "Žižka", "€uro “quoted” – dash", "it’s", "SHOUT", "ÀÉÎÕÜ",
         "ß", "ÿ", "été", "Song (2)", "Song_", "____", "Lodz", "Song.mp3"]
WIDE = ["Příliš žluťoučký kůň", "Žluté čtvrtky", "Łódź", "Ελληνικά τραγούδια", "ΣΊΣΥΦΟΣ",
        "Песня о друге", "Москва", "さくら さくら", "東京", "أغنية", "שיר", "노래", "🎵🎶", "a🎸b",
        "e\u0301te\u0301", "n\u0303", "ﬁn", "Ǆ", "İstanbul", "ıssız", "½ → ∞",
        "\u200fمرحبا\u200e"]
DEVICE_NAMES = ["con", "aux ", "NUL", "com1", "lpt9.x"]
PLAYLIST_NAMES = ["Mix"] * 6 + ["a.b", "a.c", "a", "Favorites", "Party Mix", "x=y; z", "100%",
                                "...!", "!!!", "()[]", ".start", "con", "aux ", "Old.m3u list",
                                "mix.pls", "Straße & Süden", "it's", "1999", "-", "PlayLists",
                                "SubNames", "MediaList", "{}~`'", "v1.2.3", "#1 hits", "a  b",
                                "Grüße", "’", "Mix1", "Mix12", "Mix (2)", "Mix 2", "Mix!", "mix"]
WIDE_PLAYLIST_NAMES = ["Сборник", "プレイリスト", "قائمة", "Žluté", "🎵", "Łódź mix", "ΜΟΥΣΙΚΗ"]

TITLES = ["Northern Lights", "Don't Stop (Live)", "", "Signal", "Ärger", "12", "a=b;c", "<b>",
          "x" * 90]
ARTISTS = ["The Harbours", "Zoë", "AC/DC", "Kraft & Stoff", "O'Hara", "Music", "PlayLists", "KVs"]
ALBUMS = ["Pop Hits", "Live 1999", "Übermut", "Greatest: Hits?", "Norvo Media"]
ODD_TEXTS = ["/ \\ : * ? \" < > |", "..\\..\\x", "..", ".", "C:\\x", "D:\\boom",
             "\\\\server\\share", "trailing.", "trailing ", "trailing. . .", "...", " ", "CON",
             "nul", "com1", "aux.x", "A" * 200, "long " * 50, "tab\there", "line\r\nend",
             "bell\x07\x1b", "nul\x00inside", "C:\\My Documents\\Norvo Media\\", "%", "#", "a/b/c",
             "\x81\x90\xa0", "GET_SHELL_FOLDER,5,", "[Entry 1 Properties]", "=", ";", "'", "`^~",
             "~1", "PROGRA~1"]

# Plain names are made of two words.
FIRST_WORDS = ["Silver", "Quiet", "Broken", "Golden", "Distant", "Electric", "Hollow", "Crimson",
               "Summer", "Winter", "Velvet", "Paper", "Lonely", "Burning", "Frozen", "Hidden",
               "Early", "Wild", "Gentle", "Painted", "Second", "Northern", "Rising", "Falling",
               "Blue", "Green", "Yellow", "Final", "Little", "Marble", "Open", "Secret"]
SECOND_WORDS = ["River", "Mirror", "Garden", "Station", "Harbour", "Window", "Lantern", "Mountain",
                "Morning", "Street", "Engine", "Letter", "Shadow", "Ocean", "Circus", "Highway",
                "Planet", "Forest", "Echo", "Bridge", "Orchard", "Signal", "Thunder", "Voyage",
                "Feather", "Island", "Carnival", "Meadow", "Compass", "Rain", "Anthem", "Sparrow"]
GENRES = ["Rock", "Pop", "Jazz", "Blues", "Folk", "Metal", "Dance", "Classical"]
