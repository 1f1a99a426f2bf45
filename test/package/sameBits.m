% What the host's user gets of the recordings in examples/ is what the library computes, to the last bit, whichever
% version of the kernels runs.
% Arguments: the program reference, the directory of the recordings.

1;

function assertSame (directory, name, got)
  fid = fopen (fullfile (directory, name));
  want = fread (fid, Inf, "double");
  fclose (fid);
  assert (numel (want) > 0 && isequal (typecast (got(:), "uint64"), typecast (want, "uint64")), name);
end

[reference, examples] = argv (){end-1:end};
for name = {dir(fullfile (examples, "*.wav")).name}
  file = fullfile (examples, name{1});
  directory = tempname ();
  mkdir (directory);
  assert (system (sprintf ("'%s' '%s' '%s' >'%s/console'", reference, name{1}, directory, directory)), 0);
  [wave, fs] = audioread (file);
  native = audioread (file, "native");
  framing = {"frameSize", 256, "overlap", 128};
  for input = {wave, wave', native; "portable", "avx2", "avx512"}
    wavepitchLibrary ("kernelVersion", input{2});
    for pfType = 0:1
      [pitch, ~, clarity, pfMat] = wave2pitch (input{1}, fs, "pfType", pfType);
      assertSame (directory, sprintf ("pitch%d", pfType), pitch);
      assertSame (directory, sprintf ("clarity%d", pfType), clarity);
      assertSame (directory, sprintf ("pfMat%d", pfType), pfMat);
    end
    [f0, ~, strength, ~, correlation] = wave2f0 (input{1}, fs);
    assertSame (directory, "f0", f0);
    assertSame (directory, "strength", strength);
    assertSame (directory, "correlation", double (correlation));
    assertSame (directory, "pv", wave2pv (input{1}, fs));
    assertSame (directory, "volume", wave2volume (input{1}, fs, framing{:}));
    assertSame (directory, "magnitude", absSpectrogram (input{1}, fs, framing{:}));
    assertSame (directory, "segments", endPoints (input{1}, fs, "volumeHod")');
  end
  assertSame (directory, "echo", waveEcho (wave, fs, 0.1, 0.5));
  confirm_recursive_rmdir (false);
  rmdir (directory, "s");
end
