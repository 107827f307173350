[playlist]
CachedInfo=1
File1=C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3
Title1=Blue Quarter - After Hours
Length1=288
File2=C:\Music\Ärzte und Söhne\Übermut\Straße nach Süden.mp3
Title2=Ärzte und Söhne - Straße nach Süden
Length2=240
File3=..\..\..\Music\Root Song.mp3
Title3=Nobody - Root Song
Length3=101
File4=http://radio.example.com/live.mp3
Title4=Live
Length4=-1
File5=C:\Music\Sounds\bell.wav
Length5=1
NumberOfEntries=5
Version=2
