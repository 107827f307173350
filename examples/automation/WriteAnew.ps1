# Writes a playlist anew, in the order of its artists and titles, under a new name and for all four
# players. The songs stay where they are, and so does the old list.
#
#   powershell -ExecutionPolicy Bypass -File WriteAnew.ps1 C:\Music\Mix.m3u "Mix by artist"

param(
    [Parameter(Mandatory = $true)][string] $Source,
    [Parameter(Mandatory = $true)][string] $NewName
)
$ErrorActionPreference = 'Stop'
$staysWhereItIs = 6
$name = "$NewName.m3u"

# The playlist's type by its first lines.
function Get-ListType($path) {
    if ($path -like '*.pls') { return $manager.ParsePLSHeader($path) }
    return $manager.ParseM3UHeader($path)
}

# An empty list of the new name. An entry is taken only by a collection of its own type, so it has the
# type of the old one.
function New-ListLike($old) {
    $list = New-Object -ComObject NorvoPlayList.PlayList
    $list.PlayListType = $old.PlayListType
    $list.OriginalFileName = $name
    $list.PlayListName = $name
    $list.ASX_Version = $old.ASX_Version
    $list.PlayListEntries.CollectionType = $old.PlayListEntries.CollectionType
    return $list
}

# Else the players' lists would name the places to which a move brings the songs.
function Set-Staying($song) {
    if ($song.Entry_URLType -lt $staysWhereItIs) { $song.Entry_URLType = $staysWhereItIs }
}

# WriteRawPlayList answers False whatever comes of it; the files tell. Each gets the name that is free
# then, which can be asked for before.
function Write-ForAllPlayers($list) {
    $paths = foreach ($kind in 1, 3, 6, 5) { $list.GetNewPlayListPath($name, $kind) }
    $list.WriteRawPlayList() | Out-Null
    foreach ($path in $paths) {
        if (-not (Test-Path -LiteralPath $path)) { throw "$path cannot be written" }
        $path
    }
}

$manager = New-Object -ComObject NorvoPlayList.helperMan
$old = New-Object -ComObject NorvoPlayList.PlayList
$old.PlayListType = Get-ListType $Source
if (-not $old.ReadPlayList($Source)) { throw "$Source cannot be read" }
$songs = for ($i = 1; $i -le $old.PlayListEntries.TotalSongs; $i++) { $old.PlayListEntries.Item($i) }
$list = New-ListLike $old
$sorted = $songs | Sort-Object { $_.Entry_ArtistName + "`t" + $_.Entry_SongName + "`t" + $_.Entry_SourceURL }
foreach ($song in $sorted) {
    Set-Staying $song
    $list.PlayListEntries.Add($song)
}
Write-ForAllPlayers $list
"$($list.PlayListEntries.TotalSongs) songs"
