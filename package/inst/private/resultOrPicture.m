% Calls a command of the module.  Hands on what the caller asks for; asked for nothing, computes all outputs and has
% them drawn: draw (arguments, outputs).
function out = resultOrPicture (name, arguments, asked, all, draw)
  count = asked;
  if (asked == 0)
    count = all;
  end
  out = cell (1, count);
  [out{:}] = wavepitchLibrary (name, arguments{:});
  if (asked == 0)
    draw (arguments, out);
    out = {};
  end
end
