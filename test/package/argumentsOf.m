% The arguments of a call out of calls.json, inputs before name-value pairs; a value "$NAME" is named.NAME.
function arguments = argumentsOf (call, named)
  options = [fieldnames(call.options), struct2cell(call.options)]';
  arguments = [struct2cell(call.inputs); options(:)]';
  for i = 1:numel (arguments)
    arguments{i} = hostValue (arguments{i}, named);
  end
end
