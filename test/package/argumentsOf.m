% The arguments of a call out of calls.json, inputs before name-value pairs; a value "$NAME" is named.NAME.
function arguments = argumentsOf (call, named)
  options = [fieldnames(call.options), struct2cell(call.options)]';
  arguments = [struct2cell(call.inputs); options(:)]';
  for i = find (strncmp (arguments, "$", 1))
    arguments{i} = named.(arguments{i}(2:end));
  end
end
