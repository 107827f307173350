# Tells of each playlist of this PC which of its references lead to nothing. The library drops such
# items when it reads a list, and tells of each in its log, VBLog.txt; so the log is turned on while
# this runs.
#
#   powershell -ExecutionPolicy Bypass -File FindMissing.ps1

$ErrorActionPreference = 'Stop'
$toFile = 3
$missing = '^NVERR_FILE_NOT_FOUND.*?File Not Found: (.*)$'
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

# The references that the reading of a list has called missing.
function Get-Missing($path) {
    $list = New-Object -ComObject NorvoPlayList.PlayList
    $list.PlayListType = Get-ListType $path
    Get-NewLine | Out-Null
    $list.ReadPlayList($path) | Out-Null
    Get-NewLine | Where-Object { $_ -match $missing } | ForEach-Object { $_ -replace $missing, '$1' }
}

$before = Get-Log
$total = 0
try {
    Set-Log $toFile
    $logFile = Find-Log
    $manager = New-Object -ComObject NorvoPlayList.helperMan
    Test-Log
    if (-not $manager.GetAllPlaylists()) { throw 'The drives cannot be scanned' }
    foreach ($path in $manager.GetPLSList()) {
        $gone = @(Get-Missing $path)
        if ($gone.Count -gt 0) { $path }
        $gone | ForEach-Object { "  $_" }
        $total += $gone.Count
    }
} finally {
    Set-Log $before
}
"$total missing"
if ($total -gt 0) { exit 1 }
