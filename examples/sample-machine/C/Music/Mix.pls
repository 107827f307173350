[playlist]
File1=Pop Hits [2003]\02 Don't Look Back.mp3
Title1=The Harbours - Don't Look Back
Length1=199
File2=Root Song.mp3
Title2=Nobody - Root Song
Length2=101
NumberOfEntries=2
Version=2
