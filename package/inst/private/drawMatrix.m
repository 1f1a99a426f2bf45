% The columns of a matrix as they stand in time; without a column, empty axes.
function drawMatrix (x, y, matrix, varargin)
  if (isempty (matrix))
    cla (newplot ());
  else
    imagesc (x, y, matrix, varargin{:});
    axis xy
  end
end
