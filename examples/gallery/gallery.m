% All pictures of this directory, drawn without a display.  Argument: the directory that receives them.

warning ("off", "all");  % of the toolkit, which says that it is old
graphics_toolkit ("gnuplot");
here = fileparts (mfilename ("fullpath"));
pictures = argv (){end};
mkdir (pictures);
for script = setdiff (glob (fullfile (here, "*.m")), {fullfile(here, "gallery.m")})'
  [~, name] = fileparts (script{1});
  figure ("visible", "off", "position", [0, 0, 1200, 800]);
  run (script{1});
  file = fullfile (pictures, [name ".png"]);
  print ("-dpngcairo", "-r100", file);
  close all
  assert (stat (file).size > 10000, "%s is empty", file);
  printf ("%s\n", file);
end
