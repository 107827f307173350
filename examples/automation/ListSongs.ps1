# Lists every song of every playlist of this PC, with artist and title.
#
#   powershell -ExecutionPolicy Bypass -File ListSongs.ps1

$ErrorActionPreference = 'Stop'

# The playlist's type by its first lines.
function Get-ListType($path) {
    if ($path -like '*.pls') { return $manager.ParsePLSHeader($path) }
    return $manager.ParseM3UHeader($path)
}

# "Artist: title", as far as list and song tell; else where it is.
function Get-Description($song) {
    $title = $song.Entry_SongName
    if (-not $title) { $title = $song.Entry_SourceURL }
    if ($song.Entry_ArtistName) { return "$($song.Entry_ArtistName): $title" }
    return $title
}

$manager = New-Object -ComObject NorvoPlayList.helperMan
if (-not $manager.GetAllPlaylists()) {
    'The drives cannot be scanned: are the product''s settings there?'
    exit 2
}
foreach ($path in $manager.GetPLSList()) {
    $path
    $list = New-Object -ComObject NorvoPlayList.PlayList
    $list.PlayListType = Get-ListType $path
    if (-not $list.ReadPlayList($path)) { '  (not readable to its end)' }
    $songs = $list.PlayListEntries
    for ($i = 1; $i -le $songs.TotalSongs; $i++) { '  ' + (Get-Description $songs.Item($i)) }
}
