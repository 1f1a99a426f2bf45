% The package from its tarball in the real host: installed, loaded, explained, tested, taken away.  Arguments:
% the program that packs it, a directory for it all.

[pack, directory] = argv (){end-1:end};
confirm_recursive_rmdir (false);
if (isfolder (directory)) rmdir (directory, "s"); end
for i = 1:2  % packed twice, the same bytes
  [status, text] = system (sprintf ("'%s' '%s'", pack, fullfile (directory, num2str (i))));
  assert (status, 0);
  tarballs{i} = strtrim (text);
end
assert (fileread (tarballs{1}), fileread (tarballs{2}));
cd (directory);
pkg ("prefix", fullfile (directory, "packages"), fullfile (directory, "packages"));
pkg ("local_list", fullfile (directory, "list"));
pkg ("install", tarballs{1});
pkg ("load", "wavepitch");
description = pkg ("describe", "-verbose", "wavepitch"){1};
functions = [cellfun(@(category) category.functions, description.provides, "UniformOutput", false){:}];
sources = dir (fullfile (fileparts (which ("wave2pitch")), "*.m"));
assert (sort (functions), sort (regexprep ({sources.name}, '\.m$', "")));
for name = functions
  text = evalc (["help " name{1}]);
  assert (! isempty (regexp (text, [name{1} ".*Inputs?\n.*Outputs?\n.*Example\n.*See also"], "once")), name{1});
  example = regexp (get_help_text (name{1}), '(?s)Example\n(.*?)\n *\n', "tokens", "once"){1};
  figure ("visible", "off");
  evalc (example);
  close all
  text = evalc ('[passed, total] = test (name{1}, "quiet", stdout);');
  assert (passed == total && total > 0, "%s: %s", name{1}, text);
end
pkg ("unload", "wavepitch");
pkg ("uninstall", "wavepitch");
assert (isempty (which ("wave2pitch")));
