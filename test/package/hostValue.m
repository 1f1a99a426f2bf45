% What a value out of a list of calls stands for: "$NAME" for the field NAME of the struct named.
function value = hostValue (value, named)
  if (ischar (value) && strncmp (value, "$", 1))
    value = named.(value(2:end));
  end
end
