# Listens to the one event of the library, OutOfMemory of Entry. No operation of the library raises
# it: what is shown here is how a script connects, and that it hears nothing.
#
#   powershell -ExecutionPolicy Bypass -File Events.ps1

$ErrorActionPreference = 'Stop'
$entry = New-Object -ComObject NorvoPlayList.Entry
Register-ObjectEvent -InputObject $entry -EventName OutOfMemory -SourceIdentifier Entry
try {
    $entry.EntryType = 3
    $entry.SourceURL = 'http://radio.example/live'
    $entry.SongName = 'Late Radio'
    "$($entry.SongName): $($entry.SourceURL)"
    $heard = @(Get-Event -SourceIdentifier Entry -ErrorAction SilentlyContinue)
    "$($heard.Count) events"
} finally {
    Unregister-Event -SourceIdentifier Entry
}
