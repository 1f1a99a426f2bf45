% Ctrl-C ends a long call and leaves none of its memory behind. Read at a prompt, which goes on.

global pages  % of resident memory after each call

function callUntilInterrupted ()
  global pages
  wave = zeros (1, 2^20 + 20);
  system ("sleep 0.3; kill -INT $PPID", false, "async");
  unwind_protect
    absSpectrogram (wave, 8000, "frameSize", 2^20, "overlap", 2^20 - 1, "paddedSize", 2^22);
    disp ("not interrupted");
    exit (1);
  unwind_protect_cleanup
    pages(end+1) = sscanf (fileread ("/proc/self/statm"), "%*d %d", 1);
  end_unwind_protect
end

callUntilInterrupted
callUntilInterrupted
callUntilInterrupted
pages
exit (numel (pages) != 3 || range (pages) > 2^15);
