[playlist]
File1=Teil 1\Kapitel 01.mp3
Title1=Kapitel 1
Length1=60
File2=Teil 1\Kapitel 02.mp3
Title2=Kapitel 2
Length2=62
File3=Teil 1\Kapitel 03.mp3
Title3=Kapitel 3
Length3=64
NumberOfEntries=3
