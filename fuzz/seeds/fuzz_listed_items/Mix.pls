[playlist]
File2=a.mp3
Title2=Ann - Two
File1=mms://x/
NumberOfEntries=2
[Reference]
Ref1=C:a.mp3
