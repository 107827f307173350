# Repairs a playlist: tells which of its references lead to nothing, and writes it without them, as a
# neutral file and for all four players. The old list stays as it is, and so do the songs.
#
#   powershell -ExecutionPolicy Bypass -File Repair.ps1 C:\Music\Mix.m3u

param([Parameter(Mandatory = $true)][string] $Source)
$ErrorActionPreference = 'Stop'
$toFile = 3
$staysWhereItIs = 6
$leftOut = '^NVERR_(FILE_NOT_FOUND|INVALID_ARG).*?(File Not Found|Invalid Argument or Bad Data): (.*)$'
# The library cuts a new name at its first point.
$name = [IO.Path]::GetFileNameWithoutExtension($Source).Replace('.', ' ') + ' repaired.m3u'
$seen = 0

# Nothing when the registry has none.
function Get-RegistryText($key, $name) {
    $found = Get-ItemProperty -Path "Registry::$key" -ErrorAction SilentlyContinue
    if ($found) { return $found.$name }
}

# The log is turned on for the current user; the library asks once, before its first line.
function Set-Log($mode) {
    $key = 'HKCU:\Software\Norvo\Debug'
    if (-not (Test-Path $key)) { New-Item -Path $key -Force | Out-Null }
    Set-ItemProperty -Path $key -Name VBDebugOut -Value $mode -Type DWord
}

# What holds now, of the user or of the PC.
function Get-Log {
    foreach ($hive in 'HKEY_CURRENT_USER', 'HKEY_LOCAL_MACHINE') {
        $mode = Get-RegistryText "$hive\Software\Norvo\Debug" 'VBDebugOut'
        if ($null -ne $mode) { return $mode }
    }
    return 0
}

# The log's file: in the product's folder, else in that of the DLL.
function Find-Log {
    foreach ($hive in 'HKEY_CURRENT_USER', 'HKEY_LOCAL_MACHINE') {
        $folder = Get-RegistryText "$hive\SOFTWARE\Norvo\Migration" 'ProductFolder'
        if ($folder) { return Join-Path $folder 'VBLog.txt' }
    }
    $identifier = Get-RegistryText 'HKEY_CLASSES_ROOT\NorvoPlayList.PlayList\CLSID' '(default)'
    $dll = Get-RegistryText "HKEY_CLASSES_ROOT\CLSID\$identifier\InprocServer32" '(default)'
    return Join-Path (Split-Path $dll) 'VBLog.txt'
}

# The lines of the log since the last look at it. It is text of the system's 8-bit page.
function Get-NewLine {
    if (-not (Test-Path $logFile)) { return }
    $lines = @([IO.File]::ReadAllLines($logFile, [Text.Encoding]::Default))
    $lines | Select-Object -Skip $script:seen
    $script:seen = $lines.Count
}

# An entry that is asked for its size before it has an address writes a line to the log.
function Test-Log {
    Get-NewLine | Out-Null
    (New-Object -ComObject NorvoPlayList.Entry).FileSize | Out-Null
    if (-not (Get-NewLine)) { throw "Nothing can be written to $logFile" }
}

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

# Writes the neutral file first: it is to know the songs as they were found.
function Write-Repaired($old) {
    $songs = $old.PlayListEntries
    $list = New-ListLike $old
    $list.ASX_Title = $old.ASX_Title
    for ($i = 1; $i -le $songs.TotalSongs; $i++) { $list.PlayListEntries.Add($songs.Item($i)) }
    if (-not $list.WriteGeneric($name)) { throw 'The neutral file cannot be written' }
    for ($i = 1; $i -le $songs.TotalSongs; $i++) { Set-Staying $songs.Item($i) }
    Write-ForAllPlayers $list
}

$before = Get-Log
try {
    Set-Log $toFile
    $logFile = Find-Log
    $manager = New-Object -ComObject NorvoPlayList.helperMan
    Test-Log
    $old = New-Object -ComObject NorvoPlayList.PlayList
    $old.PlayListType = Get-ListType $Source
    if ($old.PlayListType -eq 0) { throw "$Source is no playlist of a known type" }
    Get-NewLine | Out-Null
    if (-not $old.ReadPlayList($Source)) { throw "$Source cannot be read" }
    $gone = @(Get-NewLine | Where-Object { $_ -match $leftOut })
} finally {
    Set-Log $before
}
$gone | ForEach-Object { 'left out: ' + ($_ -replace $leftOut, '$3') }
$kept = $old.PlayListEntries.TotalSongs
"$($gone.Count) left out, $kept kept"
if ($kept -eq 0) { exit 1 }
Write-Repaired $old
