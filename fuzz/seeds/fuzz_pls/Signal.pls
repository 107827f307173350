[playlist]
File1=Électronique [12 inch]\Kraft & Stoff - Signal.mp3
Title1=Kraft & Stoff - Signal
Length1=402
File3=Électronique [12 inch]\Signal (Extended).mp3
File4=..\Archive\Deep\er\than most folders\lost tape.mp3
Title4=Unknown / Lost Tape
Length4=77
File5=\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3
Title5=Consort - Gigue
Length5=130
NumberOfEntries=4
Version=2
