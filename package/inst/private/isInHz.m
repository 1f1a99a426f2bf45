% Whether the arguments of a call ask for Hz; usual where they do not name a unit.
function inHz = isInHz (arguments, usual)
  unit = arguments(4:2:end)(strcmpi (arguments(3:2:end), "unit"));
  inHz = usual;
  if (! isempty (unit))
    inHz = strcmpi (unit{end}, "Hz");
  end
end
