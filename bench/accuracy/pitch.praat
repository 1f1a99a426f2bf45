# The pitch of every recording of a folder: a line "NAME FIRST STEP", the seconds of the first frame and between
# frames, then a line of the frames' frequencies in Hz.
form Pitch
  sentence folder
  real lowest
  real highest
endform
list = Create Strings as file list: "list", folder$ + "/*.wav"
count = Get number of strings
for i to count
  selectObject: list
  name$ = Get string: i
  sound = Read from file: folder$ + "/" + name$
  pitch = To Pitch (ac): 0.01, lowest, 15, "no", 0.03, 0.45, 0.01, 0.35, 0.14, highest
  first = Get time from frame number: 1
  step = Get time step
  frames# = List values in all frames: "Hertz"
  appendInfoLine: name$, " ", first, " ", step
  appendInfoLine: frames#
  removeObject: sound, pitch
endfor
