% What to ask the module for: as much as the caller asks for, or all of it to draw a picture.
function count = outputCount (asked, all)
  if (asked == 0)
    count = all;
  else
    count = asked;
  end
end
