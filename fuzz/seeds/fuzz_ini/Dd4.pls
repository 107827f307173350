[playlist]
File1=D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3
Title1=Consort - Gigue
Length1=130
NumberOfEntries=1
Version=2
