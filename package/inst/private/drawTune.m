% The query over the best tune, stretched and transposed, and the distances of the tunes.
function drawTune (query, rate, distance, details)
  clf
  if (isempty (distance))
    text (0.5, 0.5, "no tune was found", "horizontalalignment", "center");
    axis ("off");
    return
  end
  subplot (2, 1, 1);
  time = @(count, step) details.position(1) + (0:count - 1) * step / rate;
  query = double (query(:)');
  query(query == 0) = NaN;
  sounds = find (! isnan (query));
  query = query(sounds(1):sounds(end)) - details.transposition(1);
  tune = details.contour{1};
  stairs (time (numel (tune), 1), tune, "color", [0.6, 0.6, 0.6], "linewidth", 4);
  hold on
  plot (time (numel (query), details.ratio(1)), query, "color", [0.8, 0.2, 0.15], "linewidth", 1.5);
  hold off
  xlabel (sprintf ("Time (s); query %+.1f semitones, %.2f times as long", -details.transposition(1), ...
                   details.ratio(1)));
  ylabel ("Pitch (semitones)");
  title (details.name{1}, "interpreter", "none");
  grid on
  subplot (2, 1, 2);
  shown = 1:min (10, numel (distance));
  barh (shown, distance(shown), 0.7, "facecolor", [0.7, 0.8, 0.9]);
  set (gca (), "ydir", "reverse", "ytick", shown);
  text (0.01 * max (distance(shown)) * ones (size (shown)), shown, details.name(shown), "interpreter", "none");
  ylim ([0.4, shown(end) + 0.6]);
  xlabel ("Distance");
  ylabel ("Rank");
  grid on
end
